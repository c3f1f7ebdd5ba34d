// The application shell on a real desktop: first launch, the splash, the tray icon's
// clicks, closing the panel, the hand-over from a second start, and quitting.
#include "ApplicationDelegate.h"
#include "DesktopTools.h"
#include "MenubarController.h"
#include "NotificationCenter.h"
#include "Panel.h"
#include "PanelController.h"
#include "RemoteControl.h"
#include "Settings.h"
#include "SplashWindow.h"
#include "StatusItemView.h"

#include <QApplication>
#include <QGuiApplication>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QSystemTrayIcon>
#include <QTest>

using namespace DesktopTools;

class TestShell : public QObject
{
    Q_OBJECT

    std::unique_ptr<ApplicationDelegate> m_delegate;
    std::unique_ptr<RemoteControl> m_remote;

    StatusItemView *icon() const { return m_delegate->menubarController()->statusItemView(); }
    PanelController *panel() const { return m_delegate->panelController(); }

    void waitForTheIcon()
    {
        QTRY_VERIFY_WITH_TIMEOUT(icon()->statusItem()->geometry().topLeft() != QPoint(0, 0), 8000);
    }

    int trayWindowCount()
    {
        const Result tray = xdotool({"search", "--class", "trayer"});
        int windows = 0;
        for (const QByteArray &id : tray.output.split('\n')) {
            if (id.trimmed().isEmpty())
                continue;
            const Result tree = run("xwininfo", {"-tree", "-id", QString::fromLatin1(id.trimmed())});
            windows += tree.output.count("0x");
        }
        return windows;
    }

private slots:
    void initTestCase()
    {
        Settings::resetAll();
        m_delegate = std::make_unique<ApplicationDelegate>();
        m_remote = std::make_unique<RemoteControl>([this] { m_delegate->togglePanel(); }, [] {});
        QVERIFY(m_remote->registerOnSessionBus());
    }

    void firstLaunchSeedsTheSettingsAndShowsTheSplash()
    {
        m_delegate->applicationDidFinishLaunching();
        QCOMPARE(Settings::intValue(Key::Method), 1);
        QVERIFY(Settings::boolValue(Key::SplashScreen));
        QVERIFY(Settings::boolValue(Key::ShotFromPC));
        QVERIFY(!Settings::boolValue(Key::Pasted));
        QVERIFY(m_delegate->splash());
        QTRY_VERIFY(m_delegate->splash()->isVisible());
        waitForTheIcon();
        const QRect available = icon()->screen()->availableGeometry();
        QVERIFY(available.contains(m_delegate->splash()->frameGeometry()));
        QCOMPARE(m_delegate->splash()->geometry().center().x(), available.center().x());
        QTest::qWait(200);
        saveArtifact("splash.png", grabScreen());
    }

    void closingTheSplashOpensThePanel()
    {
        auto *button = m_delegate->splash()->findChild<QPushButton *>("getStartedButton");
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(!m_delegate->splash());  // closed and gone
        QTRY_VERIFY(panel()->window()->isVisible());
        QVERIFY(panel()->hasActivePanel());
        QVERIFY(m_delegate->menubarController()->hasActiveIcon());
        QVERIFY(!Settings::boolValue(Key::SplashScreen));
    }

    void thePanelHangsFromTheIcon()
    {
        const QRect iconRect = icon()->globalRect();
        const QRect frame = panel()->window()->geometry();
        QCOMPARE(frame.size(), QSize(280, 280));
        QCOMPARE(frame.top(), iconRect.bottom() + 1);
        const QRect available = icon()->screen()->availableGeometry();
        QVERIFY(available.contains(frame));
        const int wanted = qRound(iconRect.x() + iconRect.width() * 0.5 - 140);
        QCOMPARE(frame.left(), qMin(wanted, available.right() + 1 - 280));
        QTest::qWait(300);
        saveArtifact("panel-open.png", grabScreen());
    }

    void theIconIsRedrawnOnlyOnAChange()
    {
        StatusItemView *view = icon();
        const bool highlighted = view->isHighlighted();
        const int redraws = view->redrawCount();
        view->setHighlighted(highlighted);
        QCOMPARE(view->redrawCount(), redraws);
        // A new alternate image shows at the next highlight, not before.
        view->setHighlighted(false);
        const int unhighlighted = view->redrawCount();
        view->setAlternateImage(QIcon(QStringLiteral(":/icons/statusicon_black")));
        QCOMPARE(view->redrawCount(), unhighlighted);
        view->setHighlighted(true);
        QCOMPARE(view->statusItem()->icon().cacheKey(), view->alternateImage().cacheKey());
        view->setAlternateImage(QIcon(QStringLiteral(":/icons/statusicon_white")));
        view->setHighlighted(highlighted);
    }

    void iconClicksToggleThePanel()
    {
        const QPoint centre = icon()->globalRect().center();
        clickAt(centre);
        QTRY_VERIFY(!panel()->window()->isVisible());
        QVERIFY(!panel()->hasActivePanel());
        QTRY_VERIFY(!m_delegate->menubarController()->hasActiveIcon());
        QTest::qWait(400);
        clickAt(centre);
        QTRY_VERIFY(panel()->window()->isVisible());
        QVERIFY(m_delegate->menubarController()->hasActiveIcon());
    }

    void escapeCloses()
    {
        QTRY_VERIFY(panel()->window()->isActiveWindow());
        key("Escape");
        QTRY_VERIFY(!panel()->window()->isVisible());
        QVERIFY(!m_delegate->menubarController()->hasActiveIcon());
    }

    void aClickElsewhereCloses()
    {
        m_delegate->togglePanel();
        QTRY_VERIFY(panel()->window()->isActiveWindow());
        clickAt(QPoint(300, 700));
        QTRY_VERIFY(!panel()->window()->isVisible());
        QVERIFY(!panel()->hasActivePanel());
        QVERIFY(!m_delegate->menubarController()->hasActiveIcon());
    }

    void anUploadKeepsThePanelShut()
    {
        QTest::qWait(400);
        NotificationCenter::defaultCenter().post(Notifications::UploadStarted);
        QVERIFY(m_delegate->uploadBlocked());
        m_delegate->togglePanel();
        m_delegate->hotkeyWithEvent();
        QVERIFY(!panel()->hasActivePanel());
        NotificationCenter::defaultCenter().post(Notifications::UploadEnded);
        QVERIFY(!m_delegate->uploadBlocked());
    }

    void aSecondQuilloTogglesThisOne()
    {
        QVERIFY(!panel()->hasActivePanel());
        const Result second = run(QStringLiteral(QUILLO_BIN_DIR "/quillo"), {}, 15000);
        QCOMPARE(second.exitCode, 0);
        QTRY_VERIFY(panel()->hasActivePanel());
        QVERIFY(panel()->window()->isVisible());
        const Result toggle = run(QStringLiteral(QUILLO_BIN_DIR "/quillo"), {"--toggle"}, 15000);
        QCOMPARE(toggle.exitCode, 0);
        QTRY_VERIFY(!panel()->hasActivePanel());
    }

    void quittingRemovesTheIcon()
    {
        const int withIcon = trayWindowCount();
        m_delegate->applicationShouldTerminate();
        QTRY_VERIFY(trayWindowCount() < withIcon);
    }

    void laterLaunchShowsNoSplashAndResetsPerLaunchValues()
    {
        m_delegate.reset();
        Settings::setValues({{Key::ShotFromPC, false}, {Key::Pasted, true}});
        m_delegate = std::make_unique<ApplicationDelegate>();
        m_delegate->applicationDidFinishLaunching();
        QVERIFY(!m_delegate->splash());
        QVERIFY(Settings::boolValue(Key::ShotFromPC));
        QVERIFY(!Settings::boolValue(Key::Pasted));
    }

    void withoutADisplayQuilloSaysSoAndStops()
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove("DISPLAY");
        env.remove("WAYLAND_DISPLAY");
        env.remove("QT_QPA_PLATFORM");
        process.setProcessEnvironment(env);
        process.start(QStringLiteral(QUILLO_BIN_DIR "/quillo"), {});
        QVERIFY(process.waitForFinished(10000));
        QVERIFY(process.exitCode() != 0);
        const QByteArray said = process.readAllStandardError();
        QCOMPARE(said.count('\n'), 1);
        QVERIFY(said.contains("no graphical session"));
    }
};

QTEST_MAIN(TestShell)
#include "test_shell.moc"
