#pragma once
// Small helpers for tests that drive the real desktop of tests/desktop-session.sh.

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

namespace DesktopTools {

struct Result {
    int exitCode = -1;
    QByteArray output;
};

// Runs a program with arguments (no shell) and waits at most timeoutMs.
Result run(const QString &program, const QStringList &args, int timeoutMs = 10000);
// xdotool with the given arguments.
Result xdotool(const QStringList &args);
void clickAt(const QPoint &global, int button = 1);
void key(const QString &combination);

// The whole screen as the X server shows it.
QImage grabScreen();
// Saves an image under $QUILLO_TEST_ARTIFACTS (or the build's test-artifacts).
QString saveArtifact(const QString &name, const QImage &image);

}  // namespace DesktopTools
