#include "ZQHotKey.h"

#include "KeyCodeTable.h"
#include "ZQHotKeyCenter.h"

#include <QMetaMethod>
#include <QStringList>

namespace {

bool takesEvent(const QMetaMethod &method)
{
    return method.parameterMetaType(0) == QMetaType::fromType<HotKeyEvent>()
           || method.parameterTypeName(0) == "HotKeyEvent";
}

// The target's method named action that takes the most of (event, object), if any.
QMetaMethod bestMethod(const QObject *target, const QByteArray &action, const QVariant &object)
{
    const QMetaObject *meta = target->metaObject();
    QMetaMethod best;
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.name() != action || method.parameterCount() > 2)
            continue;
        if (method.parameterCount() >= 1 && !takesEvent(method))
            continue;
        if (method.parameterCount() == 2) {
            const QMetaType wanted = method.parameterMetaType(1);
            if (wanted != QMetaType::fromType<QVariant>() && object.isValid()
                && !QMetaType::canConvert(object.metaType(), wanted))
                continue;
        }
        if (!best.isValid() || method.parameterCount() > best.parameterCount())
            best = method;
    }
    return best;
}

}  // namespace

ZQHotKey::~ZQHotKey()
{
    if (m_hotKeyRef)
        ZQHotKeyCenter::sharedHotKeyCenter()->releaseGrab(this);
}

void ZQHotKey::invokeWithEvent(const HotKeyEvent &event) const
{
    if (m_target && !m_action.isEmpty()) {
        const QMetaMethod method = bestMethod(m_target, m_action, m_object);
        if (method.isValid()) {
            const QByteArray eventType = method.parameterCount() >= 1 ? method.parameterTypeName(0) : QByteArray();
            QGenericArgument eventArgument(eventType.constData(), &event);
            switch (method.parameterCount()) {
            case 0:
                method.invoke(m_target, Qt::DirectConnection);
                break;
            case 1:
                method.invoke(m_target, Qt::DirectConnection, eventArgument);
                break;
            default: {
                const QMetaType wanted = method.parameterMetaType(1);
                const QByteArray objectType = method.parameterTypeName(1);
                if (wanted == QMetaType::fromType<QVariant>()) {
                    method.invoke(m_target, Qt::DirectConnection, eventArgument,
                                  QGenericArgument(objectType.constData(), &m_object));
                } else {
                    QVariant converted = m_object.isValid() ? m_object : QVariant(wanted);
                    converted.convert(wanted);
                    method.invoke(m_target, Qt::DirectConnection, eventArgument,
                                  QGenericArgument(objectType.constData(), converted.constData()));
                }
            }
            }
            return;
        }
    }
    if (m_task)
        m_task(event);
}

QString ZQHotKey::description() const
{
    static const struct {
        quint64 mask;
        const char *name;
    } names[] = {{KeyCodeTable::ControlMask, "NSControlKeyMask"},
                 {KeyCodeTable::CommandMask, "NSCommandKeyMask"},
                 {KeyCodeTable::ShiftMask, "NSShiftKeyMask"},
                 {KeyCodeTable::OptionMask, "NSAlternateKeyMask"}};
    QStringList set;
    for (const auto &entry : names) {
        if (m_modifierFlags & entry.mask)
            set << QString::fromLatin1(entry.name);
    }
    const QString invokes = m_target && !m_action.isEmpty()
                                ? QStringLiteral("[%1 %2]").arg(m_target->objectName().isEmpty()
                                                                    ? QString::fromLatin1(m_target->metaObject()->className())
                                                                    : m_target->objectName(),
                                                                actionString())
                                : QStringLiteral("(block)");
    return QStringLiteral("<ZQHotKey: 0x%1>\n\t(key: %2\n\tflags: (%3)\n\tinvokes: %4)")
        .arg(quintptr(this), 0, 16)
        .arg(m_keyCode)
        .arg(set.join(QStringLiteral(" | ")), invokes);
}
