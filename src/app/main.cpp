// quillo: the tray application. See `quillo --help`.
#include "ApplicationDelegate.h"
#include "PanelController.h"
#include "RemoteControl.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const char kUsage[] =
    "Usage: quillo [--capture | --toggle]\n"
    "Quillo lives in the system tray: click its icon or press Super+Shift+2 to open its panel,\n"
    "Super+Shift+1 captures at once with the panel's last choices.\n"
    "\n"
    "  --capture   ask the running Quillo for a capture at once (without one running,\n"
    "              capture once and exit)\n"
    "  --toggle    open or close the running Quillo's panel\n"
    "  -h, --help  show this help\n"
    "\n"
    "Starting quillo while it already runs toggles the running one's panel.\n"
    "Settings: ~/.config/Quillo/Quillo.conf\n";

bool hasGraphicalSession()
{
    const char *platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && (std::strcmp(platform, "offscreen") == 0 || std::strcmp(platform, "minimal") == 0))
        return true;
    const char *display = std::getenv("DISPLAY");
    const char *wayland = std::getenv("WAYLAND_DISPLAY");
    return (display && *display) || (wayland && *wayland);
}

int captureOnce()
{
    PanelController controller;
    QObject::connect(&controller, &PanelController::workFinished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    controller.userDefaults();
    controller.quillo(QString());
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "-h") == 0 || std::strcmp(argv[i], "--help") == 0) {
            std::fputs(kUsage, stdout);
            return 0;
        }
    }
    if (!hasGraphicalSession()) {
        std::fputs("quillo: no graphical session (neither DISPLAY nor WAYLAND_DISPLAY is set)\n", stderr);
        return 1;
    }

    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Quillo"));
    QCoreApplication::setApplicationName(QStringLiteral("Quillo"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillo")));

    QCommandLineParser parser;
    QCommandLineOption captureOption(QStringLiteral("capture"));
    QCommandLineOption toggleOption(QStringLiteral("toggle"));
    parser.addOptions({captureOption, toggleOption});
    if (!parser.parse(QCoreApplication::arguments()) || !parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "quillo: %s\n%s", qPrintable(parser.errorText()), kUsage);
        return 2;
    }
    const bool wantsCapture = parser.isSet(captureOption);

    ApplicationDelegate delegate;
    RemoteControl remote([&delegate] { delegate.togglePanel(); },
                         [&delegate] { delegate.hotkeyWithEventObject(); });
    if (!remote.registerOnSessionBus()) {
        // Another Quillo runs: hand over to it.
        if (RemoteControl::callRunning(wantsCapture ? QStringLiteral("Capture") : QStringLiteral("Toggle")))
            return 0;
    }
    if (wantsCapture)
        return captureOnce();

    delegate.applicationDidFinishLaunching();
    const int status = QCoreApplication::exec();
    delegate.applicationShouldTerminate();
    return status;
}
