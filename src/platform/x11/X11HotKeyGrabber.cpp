#include "X11HotKeyGrabber.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr quint32 kNumLockKeysym = 0xff7f;

template <typename T>
using CPtr = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
CPtr<T> owned(T *pointer)
{
    return CPtr<T>(pointer, &std::free);
}

uint16_t xModifiers(unsigned modifiers)
{
    uint16_t mask = 0;
    if (modifiers & HotKeyGrabber::Shift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers & HotKeyGrabber::Control)
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers & HotKeyGrabber::Alt)
        mask |= XCB_MOD_MASK_1;
    if (modifiers & HotKeyGrabber::Super)
        mask |= XCB_MOD_MASK_4;
    return mask;
}

}  // namespace

std::unique_ptr<X11HotKeyGrabber> X11HotKeyGrabber::create()
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t *connection = x11 ? x11->connection() : nullptr;
    if (!connection || xcb_connection_has_error(connection))
        return nullptr;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    if (!screen)
        return nullptr;
    return std::unique_ptr<X11HotKeyGrabber>(new X11HotKeyGrabber(connection, screen->root));
}

X11HotKeyGrabber::X11HotKeyGrabber(xcb_connection_t *connection, xcb_window_t root)
    : m_connection(connection), m_root(root), m_symbols(xcb_key_symbols_alloc(connection), &xcb_key_symbols_free)
{
    readNumLockMask();
    static const char xkbName[] = "XKEYBOARD";
    auto xkb = owned(xcb_query_extension_reply(
        m_connection, xcb_query_extension(m_connection, sizeof xkbName - 1, xkbName), nullptr));
    if (xkb && xkb->present)
        m_xkbFirstEvent = xkb->first_event;
    qGuiApp->installNativeEventFilter(this);
}

X11HotKeyGrabber::~X11HotKeyGrabber()
{
    // The connection closes with the application; only ungrab while it is still there.
    if (QGuiApplication::instance()) {
        const auto grabs = m_grabs;
        for (const Grab &grab : grabs)
            ungrab(grab.id);
    }
}

void X11HotKeyGrabber::readNumLockMask()
{
    m_numLockMask = 0;
    const xcb_keycode_t numLock = keycodeForKeysym(kNumLockKeysym);
    if (!numLock)
        return;
    auto reply = owned(xcb_get_modifier_mapping_reply(m_connection, xcb_get_modifier_mapping(m_connection), nullptr));
    if (!reply)
        return;
    const xcb_keycode_t *codes = xcb_get_modifier_mapping_keycodes(reply.get());
    const int perModifier = reply->keycodes_per_modifier;
    for (int modifier = 0; modifier < 8; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            if (codes[modifier * perModifier + i] == numLock)
                m_numLockMask = uint16_t(1u << modifier);
        }
    }
}

std::vector<uint16_t> X11HotKeyGrabber::lockVariants() const
{
    std::vector<uint16_t> variants{0, XCB_MOD_MASK_LOCK};
    if (m_numLockMask) {
        variants.push_back(m_numLockMask);
        variants.push_back(uint16_t(m_numLockMask | XCB_MOD_MASK_LOCK));
    }
    return variants;
}

xcb_keycode_t X11HotKeyGrabber::keycodeForKeysym(quint32 keysym) const
{
    if (!m_symbols)
        return 0;
    auto codes = owned(xcb_key_symbols_get_keycode(m_symbols.get(), keysym));
    return codes ? codes.get()[0] : 0;  // the list ends with XCB_NO_SYMBOL (0)
}

bool X11HotKeyGrabber::grab(quint32 id, quint32 keysym, unsigned modifiers)
{
    const xcb_keycode_t keycode = keycodeForKeysym(keysym);
    const uint16_t mask = xModifiers(modifiers);
    const bool taken = std::any_of(m_grabs.begin(), m_grabs.end(), [&](const Grab &grab) {
        return grab.id == id || (grab.keycode == keycode && grab.modifiers == mask);
    });
    if (!keycode || taken || xcb_connection_has_error(m_connection) || !grabVariants(keycode, mask))
        return false;
    m_grabs.push_back({id, keysym, keycode, mask});
    return true;
}

bool X11HotKeyGrabber::grabVariants(xcb_keycode_t keycode, uint16_t mask)
{
    const std::vector<uint16_t> variants = lockVariants();
    std::vector<xcb_void_cookie_t> cookies;
    for (uint16_t variant : variants) {
        cookies.push_back(xcb_grab_key_checked(m_connection, 0, m_root, uint16_t(mask | variant), keycode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    // Checked requests: a refusal (BadAccess) comes back here instead of Qt's error log.
    std::vector<uint16_t> granted;
    for (size_t i = 0; i < cookies.size(); ++i) {
        auto error = owned(xcb_request_check(m_connection, cookies[i]));
        if (!error)
            granted.push_back(variants[i]);
    }
    if (granted.size() != variants.size()) {
        ungrabVariants(keycode, mask, granted);
        return false;
    }
    return true;
}

void X11HotKeyGrabber::ungrabVariants(xcb_keycode_t keycode, uint16_t modifiers, const std::vector<uint16_t> &variants)
{
    for (uint16_t variant : variants)
        xcb_ungrab_key(m_connection, keycode, m_root, uint16_t(modifiers | variant));
    xcb_flush(m_connection);
}

void X11HotKeyGrabber::ungrab(quint32 id)
{
    const auto found = std::find_if(m_grabs.begin(), m_grabs.end(), [id](const Grab &grab) { return grab.id == id; });
    if (found == m_grabs.end())
        return;
    if (found->keycode)
        ungrabVariants(found->keycode, found->modifiers, lockVariants());
    for (auto held = m_held.begin(); held != m_held.end();)
        held = held->second == id ? m_held.erase(held) : std::next(held);
    m_grabs.erase(found);
}

bool X11HotKeyGrabber::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t" || !message)
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    switch (event->response_type & 0x7f) {
    case XCB_KEY_PRESS:
        return keyPressed(reinterpret_cast<const xcb_key_press_event_t *>(event));
    case XCB_KEY_RELEASE:
        return keyReleased(reinterpret_cast<const xcb_key_release_event_t *>(event));
    default:
        if (isKeyboardChange(event) && !m_keyboardChangePending) {
            // Changes come in bursts: grab again once, after the burst has been read.
            m_keyboardChangePending = true;
            QMetaObject::invokeMethod(&m_context, [this] { keyboardChanged(); }, Qt::QueuedConnection);
        }
        return false;  // Qt needs these too
    }
}

bool X11HotKeyGrabber::isKeyboardChange(const xcb_generic_event_t *event) const
{
    const uint8_t type = event->response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY)
        return reinterpret_cast<const xcb_mapping_notify_event_t *>(event)->request != XCB_MAPPING_POINTER;
    // XKEYBOARD events carry their kind in the second byte: 0 new keyboard, 1 map change.
    const uint8_t xkbKind = event->pad0;
    return m_xkbFirstEvent && type == m_xkbFirstEvent && (xkbKind == 0 || xkbKind == 1);
}

void X11HotKeyGrabber::keyboardChanged()
{
    m_keyboardChangePending = false;
    if (xcb_connection_has_error(m_connection))
        return;
    const std::vector<uint16_t> oldVariants = lockVariants();
    for (const Grab &grab : m_grabs) {
        if (grab.keycode)
            ungrabVariants(grab.keycode, grab.modifiers, oldVariants);
    }
    m_symbols.reset(xcb_key_symbols_alloc(m_connection));
    readNumLockMask();
    m_held.clear();
    // A combination that now has no key, or that another client took meanwhile, stays
    // registered but inactive until the next change.
    for (Grab &grab : m_grabs) {
        grab.keycode = keycodeForKeysym(grab.keysym);
        if (grab.keycode && !grabVariants(grab.keycode, grab.modifiers))
            grab.keycode = 0;
    }
}

bool X11HotKeyGrabber::keyPressed(const xcb_key_press_event_t *event)
{
    // Not only presses on the root window: while one of Quillo's own windows holds the
    // keyboard (a popup), the combination reaches that window instead of the passive grab.
    // A press that follows a release with the same time is the key repeating: swallow both.
    const auto repeat = std::find_if(m_pending.begin(), m_pending.end(), [event](const PendingRelease &pending) {
        return pending.keycode == event->detail && pending.time == event->time;
    });
    if (repeat != m_pending.end()) {
        m_held[event->detail] = repeat->id;
        m_pending.erase(repeat);
        return true;
    }
    if (m_held.count(event->detail))
        return true;  // repeated press without release
    const uint16_t relevant = uint16_t((XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4)
                                       & ~m_numLockMask);
    const uint16_t state = event->state & relevant;
    for (const Grab &grab : m_grabs) {
        if (grab.keycode == event->detail && grab.modifiers == state) {
            m_held[event->detail] = grab.id;
            return true;
        }
    }
    return false;
}

bool X11HotKeyGrabber::keyReleased(const xcb_key_release_event_t *event)
{
    // Matched by keycode alone: the modifiers may already be up when the key comes up.
    const auto held = m_held.find(event->detail);
    if (held == m_held.end())
        return false;
    const quint64 serial = m_nextSerial++;
    m_pending.push_back({serial, held->second, event->detail, event->time});
    m_held.erase(held);
    // Delivered after the events read with this one, so that a repeat's press can cancel it.
    QMetaObject::invokeMethod(&m_context, [this, serial] { deliver(serial); }, Qt::QueuedConnection);
    return true;
}

void X11HotKeyGrabber::deliver(quint64 serial)
{
    const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                    [serial](const PendingRelease &pending) { return pending.serial == serial; });
    if (found == m_pending.end())
        return;
    const PendingRelease release = *found;
    m_pending.erase(found);
    notifyReleased(release.id, release.time);
}
