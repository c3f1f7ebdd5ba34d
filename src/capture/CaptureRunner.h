#pragma once
// Runs the grabber as a child process (an argument list, no shell) and reports its end.
// The GUI keeps running meanwhile; only one capture runs at a time in the process.

#include <QObject>
#include <QStringList>

class QProcess;

class CaptureRunner : public QObject
{
    Q_OBJECT
public:
    explicit CaptureRunner(QObject *parent = nullptr);

    // quillo-screencapture beside the running executable; QUILLO_GRABBER overrides it.
    static QString grabberProgram();
    static bool anyRunning();

    // False when a capture is already running (the request is ignored).
    bool start(const QStringList &arguments);

signals:
    // exitCode: 0 written, 1 cancelled, 2 error (also when the grabber could not start).
    void finished(int exitCode);

private:
    QProcess *m_process = nullptr;
};
