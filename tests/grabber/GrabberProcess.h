#pragma once
// Runs the built quillo-screencapture for the tests, every wait bounded.

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

struct GrabberRun
{
    int exitCode = -1;
    QByteArray out, err;
};

inline QString grabberPath() { return QStringLiteral(QUILLO_BIN_DIR "/quillo-screencapture"); }

inline GrabberRun runGrabber(const QStringList &arguments,
                             const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.start(grabberPath(), arguments);
    GrabberRun run;
    if (!p.waitForFinished(15000)) {
        p.kill();
        p.waitForFinished(2000);
        return run;
    }
    run.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    run.out = p.readAllStandardOutput();
    run.err = p.readAllStandardError();
    return run;
}

inline QProcessEnvironment fakeEnvironment(bool cancel = false)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QUILLO_GRABBER_BACKEND"), QStringLiteral("fake"));
    if (cancel)
        env.insert(QStringLiteral("QUILLO_FAKE_CANCEL"), QStringLiteral("1"));
    return env;
}
