#include "RemoteControl.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QTimer>

const QString RemoteControl::Service = QStringLiteral("app.quillo.Quillo");
const QString RemoteControl::Path = QStringLiteral("/app/quillo/Quillo");
const QString RemoteControl::Interface = QStringLiteral("app.quillo.Quillo");

RemoteControl::RemoteControl(std::function<void()> toggle, std::function<void()> capture, QObject *parent)
    : QObject(parent), m_toggle(std::move(toggle)), m_capture(std::move(capture))
{
}

bool RemoteControl::registerOnSessionBus()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    if (!bus.registerService(Service))
        return false;
    return bus.registerObject(Path, this, QDBusConnection::ExportScriptableSlots);
}

bool RemoteControl::callRunning(const QString &method)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(Service))
        return false;
    const QDBusMessage call = QDBusMessage::createMethodCall(Service, Path, Interface, method);
    const QDBusMessage reply = bus.call(call, QDBus::Block, 5000);
    return reply.type() == QDBusMessage::ReplyMessage;
}

// Answer the caller first; the work runs on the next turn of the event loop.
void RemoteControl::Toggle()
{
    QTimer::singleShot(0, this, [this] { m_toggle(); });
}

void RemoteControl::Capture()
{
    QTimer::singleShot(0, this, [this] { m_capture(); });
}
