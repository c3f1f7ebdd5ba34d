#include "DesktopTools.h"

#include <QDir>
#include <QEventLoop>
#include <QTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>

namespace DesktopTools {

Result run(const QString &program, const QStringList &args, int timeoutMs)
{
    // The event loop keeps running meanwhile: the child may call back into this process
    // (a second quillo asks the running one over the session bus).
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    process.start(program, args);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    Result result;
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(1000);
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.output = process.readAll();
    return result;
}

Result xdotool(const QStringList &args)
{
    return run(QStringLiteral("xdotool"), args);
}

void clickAt(const QPoint &global, int button)
{
    xdotool({QStringLiteral("mousemove"), QString::number(global.x()), QString::number(global.y())});
    QTest::qWait(50);
    xdotool({QStringLiteral("click"), QString::number(button)});
}

void key(const QString &combination)
{
    xdotool({QStringLiteral("key"), combination});
}

QImage grabScreen()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->grabWindow(0).toImage() : QImage();
}

QString saveArtifact(const QString &name, const QImage &image)
{
    QString dir = qEnvironmentVariable("QUILLO_TEST_ARTIFACTS");
    if (dir.isEmpty())
        dir = QDir::currentPath() + QStringLiteral("/test-artifacts");
    QDir().mkpath(dir);
    const QString path = QDir(dir).filePath(name);
    image.save(path);
    return path;
}

}  // namespace DesktopTools
