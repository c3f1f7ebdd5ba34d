#pragma once
// One registration of the hot key center: a key combination and what it invokes.
// Two records are equal when key code and modifier flags are equal, whatever they invoke.

#include "HotKeyEvent.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>

class ZQHotKeyCenter;

class ZQHotKey
{
public:
    using Task = std::function<void(const HotKeyEvent &)>;

    ZQHotKey() = default;
    ~ZQHotKey();  // a record still registered unregisters itself
    ZQHotKey(const ZQHotKey &) = delete;
    ZQHotKey &operator=(const ZQHotKey &) = delete;

    QObject *target() const { return m_target; }
    QByteArray action() const { return m_action; }
    QString actionString() const { return QString::fromLatin1(m_action); }
    QVariant object() const { return m_object; }
    quint16 keyCode() const { return m_keyCode; }
    quint64 modifierFlags() const { return m_modifierFlags; }
    const Task &task() const { return m_task; }
    quint32 hotKeyID() const { return m_hotKeyID; }
    void setHotKeyID(quint32 id) { m_hotKeyID = id; }
    // Registered with the window system: the grab is held under hotKeyID.
    bool hotKeyRef() const { return m_hotKeyRef; }
    void setHotKeyRef(bool registered) { m_hotKeyRef = registered; }

    bool operator==(const ZQHotKey &other) const
    {
        return m_keyCode == other.m_keyCode && m_modifierFlags == other.m_modifierFlags;
    }
    size_t hash() const { return size_t(m_modifierFlags ^ m_keyCode); }

    // Sends the action to the target when the target has it, else runs the task.
    // The action may take (HotKeyEvent, object), (HotKeyEvent) or nothing; the object is
    // converted to the second parameter's type.
    void invokeWithEvent(const HotKeyEvent &event) const;

    // "<base>\n\t(key: N\n\tflags: (NSCommandKeyMask | ...)\n\tinvokes: [target action])"
    QString description() const;

private:
    friend class ZQHotKeyCenter;
    void _setTarget(QObject *target) { m_target = target; }
    void _setAction(const QByteArray &action) { m_action = action; }
    void _setObject(const QVariant &object) { m_object = object; }
    void _setKeyCode(quint16 keyCode) { m_keyCode = keyCode; }
    void _setModifierFlags(quint64 flags) { m_modifierFlags = flags; }
    void _setTask(Task task) { m_task = std::move(task); }

    QPointer<QObject> m_target;
    QByteArray m_action;
    QVariant m_object;
    quint16 m_keyCode = 0;
    quint64 m_modifierFlags = 0;
    Task m_task;
    quint32 m_hotKeyID = 0;
    bool m_hotKeyRef = false;
};
