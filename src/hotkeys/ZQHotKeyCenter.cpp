#include "ZQHotKeyCenter.h"

#include "HotKeyGrabber.h"
#include "KeyCodeTable.h"
#include "Platform.h"

#include <QGuiApplication>

ZQHotKeyCenter *ZQHotKeyCenter::sharedHotKeyCenter()
{
    // Never destroyed: grabs end with the display connection when the process ends.
    static ZQHotKeyCenter *const shared = new ZQHotKeyCenter;
    return shared;
}

void ZQHotKeyCenter::setHotKeyGrabber(std::unique_ptr<HotKeyGrabber> grabber)
{
    unregisterAllHotKeys();
    m_grabber = std::move(grabber);
    if (m_grabber)
        m_grabber->setReleaseHandler([this](quint32 id, quint64 timestamp) { hotKeyReleased(id, timestamp); });
}

HotKeyGrabber *ZQHotKeyCenter::grabber()
{
    // Without a GUI application there is no session to pick a back end for yet.
    if (!m_grabber && QGuiApplication::instance())
        setHotKeyGrabber(Platform::createHotKeyGrabber());
    return m_grabber.get();
}

bool ZQHotKeyCenter::registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, QObject *target,
                                               const QByteArray &action, const QVariant &object)
{
    if (hasRegisteredHotKeyWithKeyCode(keyCode, modifierFlags))
        return false;
    auto hotKey = std::make_shared<ZQHotKey>();
    hotKey->_setTarget(target);
    hotKey->_setAction(action);
    hotKey->_setObject(object);
    hotKey->_setKeyCode(keyCode);
    hotKey->_setModifierFlags(modifierFlags);
    return _registerHotKey(hotKey);
}

bool ZQHotKeyCenter::registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, ZQHotKey::Task task)
{
    if (hasRegisteredHotKeyWithKeyCode(keyCode, modifierFlags))
        return false;
    auto hotKey = std::make_shared<ZQHotKey>();
    hotKey->_setKeyCode(keyCode);
    hotKey->_setModifierFlags(modifierFlags);
    hotKey->_setTask(std::move(task));
    return _registerHotKey(hotKey);
}

bool ZQHotKeyCenter::_registerHotKey(const HotKeyPtr &hotKey)
{
    const quint32 keysym = KeyCodeTable::keysymForKeyCode(hotKey->keyCode());
    HotKeyGrabber *backEnd = grabber();
    if (!keysym || !backEnd)
        return false;
    const unsigned modifiers = KeyCodeTable::grabModifiersForFlags(hotKey->modifierFlags());
    if (!backEnd->grab(m_nextHotKeyID, keysym, modifiers))
        return false;
    hotKey->setHotKeyRef(true);
    hotKey->setHotKeyID(m_nextHotKeyID);
    ++m_nextHotKeyID;
    m_registeredHotKeys.append(hotKey);
    return true;
}

void ZQHotKeyCenter::releaseGrab(ZQHotKey *hotKey)
{
    if (!hotKey->hotKeyRef())
        return;
    if (m_grabber)
        m_grabber->ungrab(hotKey->hotKeyID());
    hotKey->setHotKeyRef(false);
}

void ZQHotKeyCenter::unregisterHotKey(const HotKeyPtr &hotKey)
{
    if (!hotKey || !hotKey->hotKeyRef())
        return;
    releaseGrab(hotKey.get());
    m_registeredHotKeys.removeAll(hotKey);
}

void ZQHotKeyCenter::unregisterHotKeysMatching(const Predicate &predicate)
{
    for (const HotKeyPtr &hotKey : hotKeysMatching(predicate))
        unregisterHotKey(hotKey);
}

void ZQHotKeyCenter::unregisterHotKeysWithTarget(QObject *target)
{
    unregisterHotKeysMatching([target](const ZQHotKey &hotKey) { return hotKey.target() == target; });
}

void ZQHotKeyCenter::unregisterHotKeysWithTarget(QObject *target, const QByteArray &action)
{
    unregisterHotKeysMatching([target, &action](const ZQHotKey &hotKey) {
        return hotKey.target() == target && hotKey.action() == action;
    });
}

void ZQHotKeyCenter::unregisterHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags)
{
    unregisterHotKeysMatching([keyCode, modifierFlags](const ZQHotKey &hotKey) {
        return hotKey.keyCode() == keyCode && hotKey.modifierFlags() == modifierFlags;
    });
}

void ZQHotKeyCenter::unregisterAllHotKeys()
{
    const QList<HotKeyPtr> all = m_registeredHotKeys;
    for (const HotKeyPtr &hotKey : all)
        unregisterHotKey(hotKey);
}

QList<ZQHotKeyCenter::HotKeyPtr> ZQHotKeyCenter::hotKeysMatching(const Predicate &predicate) const
{
    QList<HotKeyPtr> matches;
    for (const HotKeyPtr &hotKey : m_registeredHotKeys) {
        if (predicate(*hotKey))
            matches.append(hotKey);
    }
    return matches;
}

bool ZQHotKeyCenter::hasRegisteredHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags) const
{
    return !hotKeysMatching([keyCode, modifierFlags](const ZQHotKey &hotKey) {
                return hotKey.keyCode() == keyCode && hotKey.modifierFlags() == modifierFlags;
            }).isEmpty();
}

QList<ZQHotKeyCenter::HotKeyPtr> ZQHotKeyCenter::registeredHotKeys() const
{
    return hotKeysMatching([](const ZQHotKey &hotKey) { return hotKey.hotKeyRef(); });
}

void ZQHotKeyCenter::hotKeyReleased(quint32 id, quint64 timestamp)
{
    const QList<HotKeyPtr> matches =
        hotKeysMatching([id](const ZQHotKey &hotKey) { return hotKey.hotKeyID() == id; });
    if (matches.isEmpty())
        return;
    // Keep the record alive while its action runs, even if the action unregisters it.
    const HotKeyPtr hotKey = matches.first();
    HotKeyEvent event;
    event.keyCode = hotKey->keyCode();
    event.modifierFlags = hotKey->modifierFlags();
    event.timestamp = timestamp;
    hotKey->invokeWithEvent(event);
}
