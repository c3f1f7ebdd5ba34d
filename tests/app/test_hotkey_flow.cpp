// Quillo's global hot keys on the real X server: Super+Shift+2 toggles the panel,
// Super+Shift+1 captures without it (also with NumLock on), `quillo --capture` asks the
// running Quillo, an upload shuts both, switching them off releases the grabs, and a
// combination another client holds is refused without harm.
#include "ApplicationDelegate.h"
#include "DesktopTools.h"
#include "HoverPopUp.h"
#include "NotificationCenter.h"
#include "PanelController.h"
#include "RemoteControl.h"
#include "Settings.h"
#include "ZQHotKeyCenter.h"

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

#include <QDir>
#include <QStandardPaths>
#include <QTest>

using namespace DesktopTools;

namespace {

// Another client's grab of Super+Shift+<digit> on the root window.
class ForeignGrab
{
public:
    explicit ForeignGrab(xcb_keysym_t keysym)
    {
        m_connection = xcb_connect(nullptr, nullptr);
        xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(m_connection);
        xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, keysym);
        const xcb_keycode_t code = codes ? codes[0] : 0;
        free(codes);
        xcb_key_symbols_free(symbols);
        xcb_generic_error_t *error = xcb_request_check(
            m_connection, xcb_grab_key_checked(m_connection, 1, screen->root, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT,
                                               code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        m_held = code != 0 && !error;
        free(error);
    }
    ~ForeignGrab() { xcb_disconnect(m_connection); }
    bool held() const { return m_held; }

private:
    xcb_connection_t *m_connection;
    bool m_held = false;
};

constexpr xcb_keysym_t kKeysym1 = 0x31;
constexpr xcb_keysym_t kKeysym2 = 0x32;

}  // namespace

class TestHotKeyFlow : public QObject
{
    Q_OBJECT

    std::unique_ptr<ApplicationDelegate> m_delegate;
    std::unique_ptr<RemoteControl> m_remote;
    QString m_desktop;

    int files() const { return QDir(m_desktop).entryList(QDir::Files).size(); }
    PanelController *panel() { return m_delegate->panelController(); }
    void switchHotKeys() { panel()->popUpPrefsAction(panel()->popUpPrefs()->findData(3)); }

private slots:
    void initTestCase()
    {
        qputenv("QUILLO_GRABBER_BACKEND", "fake");
        qputenv("QUILLO_GRABBER", QUILLO_BIN_DIR "/quillo-screencapture");
        m_desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
        Settings::resetAll();
        Settings::runLaunchSettingsWork();
        Settings::setValues({{Key::SplashScreen, false}, {Key::Method, 3}, {Key::Output, 1}});
        m_delegate = std::make_unique<ApplicationDelegate>();
        m_delegate->applicationDidFinishLaunching();
        m_remote = std::make_unique<RemoteControl>([this] { m_delegate->togglePanel(); },
                                                   [this] { m_delegate->hotkeyWithEventObject(); });
        QVERIFY(m_remote->registerOnSessionBus());
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->hasRegisteredHotKeyWithKeyCode(19, 0x120000));
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->hasRegisteredHotKeyWithKeyCode(18, 0x120000));
    }

    void superShift2TogglesThePanel()
    {
        key("super+shift+2");
        QTRY_VERIFY(panel()->hasActivePanel());
        QTRY_VERIFY(panel()->window()->isVisible());
        QTest::qWait(300);
        key("super+shift+2");
        QTRY_VERIFY(!panel()->hasActivePanel());
    }

    void superShift1CapturesWithoutThePanel()
    {
        const int before = files();
        key("super+shift+1");
        QTRY_COMPARE_WITH_TIMEOUT(files(), before + 1, 10000);
        QVERIFY(!panel()->hasActivePanel());
        QVERIFY(!Settings::boolValue(Key::ShotFromPC));
    }

    void numLockDoesNotStopThem()
    {
        key("Num_Lock");
        const int before = files();
        key("super+shift+1");
        QTRY_COMPARE_WITH_TIMEOUT(files(), before + 1, 10000);
        key("Num_Lock");
    }

    void quilloCaptureAsksTheRunningQuillo()
    {
        const int before = files();
        QCOMPARE(run(QStringLiteral(QUILLO_BIN_DIR "/quillo"), {"--capture"}, 15000).exitCode, 0);
        QTRY_COMPARE_WITH_TIMEOUT(files(), before + 1, 10000);
    }

    void anUploadShutsBoth()
    {
        NotificationCenter::defaultCenter().post(Notifications::UploadStarted);
        const int before = files();
        key("super+shift+1");
        key("super+shift+2");
        QTest::qWait(800);
        QCOMPARE(files(), before);
        QVERIFY(!panel()->hasActivePanel());
        NotificationCenter::defaultCenter().post(Notifications::UploadEnded);
    }

    void switchingOffReleasesTheGrabs()
    {
        switchHotKeys();
        QVERIFY(!Settings::boolValue(Key::Hotkey));
        QVERIFY(!ZQHotKeyCenter::sharedHotKeyCenter()->hasRegisteredHotKeyWithKeyCode(19, 0x120000));
        {
            ForeignGrab two(kKeysym2);
            ForeignGrab one(kKeysym1);
            QVERIFY(two.held());
            QVERIFY(one.held());
        }
        key("super+shift+2");
        QTest::qWait(500);
        QVERIFY(!panel()->hasActivePanel());
    }

    void aCombinationHeldElsewhereIsRefused()
    {
        ForeignGrab one(kKeysym1);
        QVERIFY(one.held());
        switchHotKeys();  // on again: the toggle registers, the capture is refused
        QVERIFY(Settings::boolValue(Key::Hotkey));
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        QVERIFY(center->hasRegisteredHotKeyWithKeyCode(19, 0x120000));
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(18, 0x120000));
        key("super+shift+2");
        QTRY_VERIFY(panel()->hasActivePanel());
        panel()->setHasActivePanel(false);
    }
};

QTEST_MAIN(TestHotKeyFlow)
#include "test_hotkey_flow.moc"
