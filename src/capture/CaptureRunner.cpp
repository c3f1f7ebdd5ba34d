#include "CaptureRunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

namespace {
bool g_running = false;
}

CaptureRunner::CaptureRunner(QObject *parent) : QObject(parent) {}

QString CaptureRunner::grabberProgram()
{
    const QString overridden = qEnvironmentVariable("QUILLO_GRABBER");
    if (!overridden.isEmpty())
        return overridden;
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("quillo-screencapture"));
}

bool CaptureRunner::anyRunning()
{
    return g_running;
}

bool CaptureRunner::start(const QStringList &arguments)
{
    if (g_running)
        return false;
    g_running = true;
    m_process = new QProcess(this);
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(m_process, &QProcess::finished, this, [this](int exitCode, QProcess::ExitStatus status) {
        g_running = false;
        m_process->deleteLater();
        m_process = nullptr;
        emit finished(status == QProcess::NormalExit ? exitCode : 2);
    });
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        g_running = false;
        m_process->deleteLater();
        m_process = nullptr;
        emit finished(2);
    });
    m_process->start(grabberProgram(), arguments);
    return true;
}
