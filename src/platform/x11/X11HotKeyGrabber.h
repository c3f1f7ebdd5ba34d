#pragma once
// Global hot keys on X11: passive key grabs on the root window, on Qt's own connection.
// Each combination is grabbed four times (with and without NumLock and CapsLock); a
// combination another client holds is refused without a word. A release is reported once
// per press, from the event loop, after the X event has been handled. When the keyboard
// mapping changes (xmodmap, a new layout) every combination is grabbed again on its new key.

#include "HotKeyGrabber.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <map>
#include <memory>
#include <vector>

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

class X11HotKeyGrabber final : public HotKeyGrabber, private QAbstractNativeEventFilter
{
public:
    // Null when the application does not run on an X11 connection.
    static std::unique_ptr<X11HotKeyGrabber> create();
    ~X11HotKeyGrabber() override;

    bool grab(quint32 id, quint32 keysym, unsigned modifiers) override;
    void ungrab(quint32 id) override;

private:
    struct Grab {
        quint32 id;
        quint32 keysym;
        xcb_keycode_t keycode;  // 0 while the keyboard has no key for the keysym
        uint16_t modifiers;  // X modifier mask without the lock bits
    };
    struct PendingRelease {
        quint64 serial;
        quint32 id;
        xcb_keycode_t keycode;
        xcb_timestamp_t time;
    };
    using KeySymbols = std::unique_ptr<xcb_key_symbols_t, void (*)(xcb_key_symbols_t *)>;

    X11HotKeyGrabber(xcb_connection_t *connection, xcb_window_t root);

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    bool keyPressed(const xcb_key_press_event_t *event);
    bool keyReleased(const xcb_key_release_event_t *event);
    void deliver(quint64 serial);
    void readNumLockMask();
    bool isKeyboardChange(const xcb_generic_event_t *event) const;
    void keyboardChanged();
    bool grabVariants(xcb_keycode_t keycode, uint16_t modifiers);
    std::vector<uint16_t> lockVariants() const;
    xcb_keycode_t keycodeForKeysym(quint32 keysym) const;
    void ungrabVariants(xcb_keycode_t keycode, uint16_t modifiers, const std::vector<uint16_t> &variants);

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    KeySymbols m_symbols;
    uint16_t m_numLockMask = 0;
    uint8_t m_xkbFirstEvent = 0;  // 0 without the XKEYBOARD extension
    bool m_keyboardChangePending = false;
    std::vector<Grab> m_grabs;
    std::map<xcb_keycode_t, quint32> m_held;  // keycode -> grab id, from press to release
    std::vector<PendingRelease> m_pending;
    quint64 m_nextSerial = 1;
    QObject m_context;  // queued deliveries die with the grabber
};
