#pragma once
// The process-wide registry of global hot keys. A client names a virtual key code (US layout)
// and an AppKit-style modifier mask, and a target + action (+ object) or a task; the center
// grabs the combination for the session and invokes the record when the combination is
// released. GUI thread only.
//
// The window-system back end comes from Platform::createHotKeyGrabber() on the first
// registration (X11 grabs on an xcb session, a back end that refuses everything elsewhere),
// unless setHotKeyGrabber() installed one before.

#include "HotKeyEvent.h"
#include "ZQHotKey.h"

#include <QList>
#include <functional>
#include <memory>

class HotKeyGrabber;

class ZQHotKeyCenter
{
public:
    using HotKeyPtr = std::shared_ptr<ZQHotKey>;
    using Predicate = std::function<bool(const ZQHotKey &)>;

    // The single instance, created on first use; it lives until the process ends.
    static ZQHotKeyCenter *sharedHotKeyCenter();

    // Replaces the back end; registrations held by the old one are unregistered first.
    void setHotKeyGrabber(std::unique_ptr<HotKeyGrabber> grabber);

    // NO for a combination already registered (whoever registered it), a key code without a
    // key, or a combination the window system refuses (e.g. held by another program).
    bool registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, QObject *target,
                                   const QByteArray &action, const QVariant &object = QVariant());
    bool registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, ZQHotKey::Task task);

    void unregisterHotKey(const HotKeyPtr &hotKey);
    void unregisterHotKeysMatching(const Predicate &predicate);
    void unregisterHotKeysWithTarget(QObject *target);
    void unregisterHotKeysWithTarget(QObject *target, const QByteArray &action);
    // Removes the registration of that combination, whoever registered it.
    void unregisterHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags);
    void unregisterAllHotKeys();

    QList<HotKeyPtr> hotKeysMatching(const Predicate &predicate) const;
    bool hasRegisteredHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags) const;
    QList<HotKeyPtr> registeredHotKeys() const;
    // The id the next successful registration receives (ids start at 1, never reused).
    quint32 nextHotKeyID() const { return m_nextHotKeyID; }

private:
    friend class ZQHotKey;
    ZQHotKeyCenter() = default;
    ~ZQHotKeyCenter() = default;

    HotKeyGrabber *grabber();
    bool _registerHotKey(const HotKeyPtr &hotKey);
    void releaseGrab(ZQHotKey *hotKey);
    void hotKeyReleased(quint32 id, quint64 timestamp);

    QList<HotKeyPtr> m_registeredHotKeys;
    quint32 m_nextHotKeyID = 1;
    std::unique_ptr<HotKeyGrabber> m_grabber;
};
