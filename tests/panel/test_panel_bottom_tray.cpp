// With the tray at the bottom of the screen the panel opens above the icon, its bottom
// edge on the icon's top edge, and stays on screen. Runs on its own desktop whose tray
// sits at the bottom right (see CMakeLists.txt).
#include "ApplicationDelegate.h"
#include "BackgroundView.h"
#include "DesktopTools.h"
#include "MenubarController.h"
#include "PanelController.h"
#include "Settings.h"
#include "StatusItemView.h"

#include <QScreen>
#include <QSystemTrayIcon>
#include <QTest>

class TestPanelBottomTray : public QObject
{
    Q_OBJECT
private slots:
    void opensAboveABottomTray()
    {
        Settings::resetAll();
        Settings::runLaunchSettingsWork();
        Settings::setValues({{Key::SplashScreen, false}, {Key::Hotkey, false}});
        ApplicationDelegate delegate;
        delegate.applicationDidFinishLaunching();
        StatusItemView *icon = delegate.menubarController()->statusItemView();
        QTRY_VERIFY_WITH_TIMEOUT(icon->statusItem()->geometry().topLeft() != QPoint(0, 0), 8000);
        const QRect iconRect = icon->globalRect();
        const QRect screen = icon->screen()->geometry();
        QVERIFY2(iconRect.top() > screen.center().y(), "the tray is expected at the bottom");

        DesktopTools::clickAt(iconRect.center());
        PanelController *panel = delegate.panelController();
        QTRY_VERIFY(panel->window() && panel->window()->isVisible());
        const QRect frame = panel->window()->geometry();
        QCOMPARE(frame.bottom() + 1, iconRect.top());
        QVERIFY(icon->screen()->availableGeometry().contains(frame));
        QVERIFY(panel->window()->backgroundView()->opensUpward());
        QTest::qWait(300);
        DesktopTools::saveArtifact("panel-bottom-tray.png", DesktopTools::grabScreen());
    }
};

QTEST_MAIN(TestPanelBottomTray)
#include "test_panel_bottom_tray.moc"
