#pragma once
// Quillo's own small D-Bus interface on the session bus: a second start hands over to
// the running Quillo through it, and desktop shortcut settings can call it too.
//   service app.quillo.Quillo, object /app/quillo/Quillo, interface app.quillo.Quillo
//   methods: Toggle() – open or close the panel; Capture() – capture at once.

#include <QObject>
#include <functional>

class RemoteControl : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.quillo.Quillo")
public:
    static const QString Service;
    static const QString Path;
    static const QString Interface;

    RemoteControl(std::function<void()> toggle, std::function<void()> capture, QObject *parent = nullptr);

    // Claims the service name; false when another Quillo holds it (or there is no bus).
    bool registerOnSessionBus();

    // Asks the running Quillo; false when none answers.
    static bool callRunning(const QString &method);

public slots:
    Q_SCRIPTABLE void Toggle();
    Q_SCRIPTABLE void Capture();

private:
    std::function<void()> m_toggle;
    std::function<void()> m_capture;
};
