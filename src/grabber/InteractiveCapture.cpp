#include "InteractiveCapture.h"
#include "SelectionOverlay.h"
#include "WindowShadow.h"

#include <QApplication>
#include <QScreen>

CaptureResult runInteractiveCapture(CaptureBackend &backend, const GrabberOptions &options,
                                    int &argc, char **argv)
{
    CaptureResult result;
    // Freeze the desktop before any window of ours appears.
    const QRect desktop = backend.desktopGeometry();
    const QImage frozen = backend.grab(desktop);
    if (frozen.isNull()) {
        result.error = backend.lastError();
        return result;
    }
    const QList<TopLevelWindow> windows = backend.topLevelWindows();

    // Widget pixels are device pixels; the overlay scales its own decorations.
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication app(argc, argv);
    const qreal uiScale = qMax<qreal>(1.0, app.primaryScreen()->logicalDotsPerInch() / 96.0);

    SelectionOverlay overlay(frozen, desktop, windows,
                             options.mode == GrabberOptions::Mode::Window ? SelectionOverlay::Mode::Window
                                                                          : SelectionOverlay::Mode::Area,
                             uiScale);
    QObject::connect(&overlay, &SelectionOverlay::done, &app, &QApplication::quit);
    overlay.show();
    app.exec();

    switch (overlay.outcome()) {
    case SelectionOverlay::Outcome::Area:
        result.image = frozen.copy(overlay.selectedArea().translated(-desktop.topLeft()));
        break;
    case SelectionOverlay::Outcome::Window: {
        const QRect rect = backend.windowWithoutShadowMargins(overlay.selectedWindow()) & desktop;
        result.image = frozen.copy(rect.translated(-desktop.topLeft()));
        if (options.shadow)
            result.image = WindowShadow::addShadow(result.image, uiScale);
        break;
    }
    case SelectionOverlay::Outcome::NoInput:
        result.error = QStringLiteral("another program holds the keyboard or pointer");
        return result;
    case SelectionOverlay::Outcome::Pending:
    case SelectionOverlay::Outcome::Cancelled:
        result.status = CaptureResult::Status::Cancelled;
        return result;
    }
    result.status = result.image.isNull() ? CaptureResult::Status::Failed : CaptureResult::Status::Captured;
    if (result.image.isNull())
        result.error = QStringLiteral("the selection is empty");
    return result;
}
