// An upload from the shoot button to the clipboard, against a real HTTP server on
// 127.0.0.1: the upload panel's states, the lock on the panel and the capture hot key,
// the link history, and a failing host.
#include "ApplicationDelegate.h"
#include "LiveSettings.h"
#include "NotificationCenter.h"
#include "PanelController.h"
#include "Settings.h"
#include "Texts.h"
#include "UploadPanel.h"

#include <httplib.h>

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <chrono>
#include <thread>

class TestUploadFlow : public QObject
{
    Q_OBJECT

    httplib::Server m_server;
    std::thread m_serverThread;
    int m_port = 0;
    std::atomic<int> m_uploadStatus{200};
    std::atomic<int> m_uploads{0};
    std::atomic<int> m_answerDelayMs{0};
    std::unique_ptr<ApplicationDelegate> m_delegate;
    QStringList m_seen;

    QString base() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }

private slots:
    void initTestCase()
    {
        m_server.Post("/upload_api.php", [this](const httplib::Request &req, httplib::Response &res) {
            ++m_uploads;
            std::this_thread::sleep_for(std::chrono::milliseconds(m_answerDelayMs.load()));
            const bool complete = req.has_file("fileupload") && req.get_file_value("key").content == "test-key"
                && req.get_file_value("format").content == "json";
            res.status = complete ? m_uploadStatus.load() : 400;
            res.set_content("{\"status\":\"1\",\"image_link\":\"http:\\/\\/127.0.0.1\\/img\\/a1.jpg\",\"x\":1}",
                            "application/json");
        });
        m_server.Post("/create.php", [this](const httplib::Request &req, httplib::Response &res) {
            const bool ok = req.get_param_value("format") == "simple" && !req.get_param_value("url").empty();
            const std::string shortLink = "http://127.0.0.1:" + std::to_string(m_port) + "/Qx7";
            res.set_content(ok ? shortLink : "Error: bad request", "text/plain");
        });
        m_port = m_server.bind_to_any_port("127.0.0.1");
        QVERIFY(m_port > 0);
        m_serverThread = std::thread([this] { m_server.listen_after_bind(); });

        qputenv("QUILLO_GRABBER_BACKEND", "fake");
        qputenv("QUILLO_GRABBER", QUILLO_BIN_DIR "/quillo-screencapture");
        Settings::resetAll();
        Settings::runLaunchSettingsWork();
        Settings::setValues({{Key::SplashScreen, false}, {Key::Hotkey, false}, {Key::Method, 3}, {Key::Output, 2},
                             {Key::Uploader, QStringLiteral("ImageShack API")},
                             {Key::ImageHostUrl, base() + "/upload_api.php"},
                             {Key::ImageHostKey, QStringLiteral("test-key")},
                             {Key::ShortenerUrl, base() + "/create.php"},
                             {Key::LinkHost, QStringLiteral("quil.lo")}});
        m_delegate = std::make_unique<ApplicationDelegate>();
        m_delegate->applicationDidFinishLaunching();
        PanelController *panel = m_delegate->panelController();
        panel->statusRectForWindow(panel->window());
        for (const QString &name : {Notifications::UploadStarted, Notifications::UploadEnded})
            NotificationCenter::defaultCenter().addObserver(name, this, [this](const QString &n) { m_seen << n; });
    }

    void cleanupTestCase()
    {
        m_delegate.reset();
        m_server.stop();
        m_serverThread.join();
    }

    void aSuccessfulUploadCopiesTheProductLink()
    {
        PanelController *panel = m_delegate->panelController();
        UploadPanel *upload = m_delegate->uploadPanel();
        m_seen.clear();
        panel->shootButton();

        QTRY_VERIFY_WITH_TIMEOUT(upload->window()->isVisible(), 10000);
        QTRY_VERIFY(m_delegate->uploadBlocked());
        // While the upload shows, the panel and the capture hot key do nothing.
        m_delegate->togglePanel();
        QVERIFY(!panel->hasActivePanel());
        m_delegate->hotkeyWithEventObject();

        QTRY_COMPARE_WITH_TIMEOUT(upload->copiedLabel()->text(), Texts::URLCopied, 10000);
        QVERIFY(upload->copiedLabel()->isVisible());
        QVERIFY(!upload->uploadLabel()->isVisible());
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("quil.lo/?x=Qx7"));
        QTRY_COMPARE(Settings::stringList(Key::URLArray), QStringList{QStringLiteral("quil.lo/?x=Qx7")});
        QCOMPARE(panel->outputAppLabel()->text(), Texts::AccessURLList);
        QVERIFY(panel->clipboardPopUp()->isEnabled());
        QCOMPARE(panel->clipboardPopUp()->count(), 4);

        QTRY_VERIFY_WITH_TIMEOUT(!upload->window()->isVisible(), 8000);
        QTRY_VERIFY(!m_delegate->uploadBlocked());
        QCOMPARE(m_seen, (QStringList{Notifications::UploadStarted, Notifications::UploadEnded}));
        QCOMPARE(m_uploads.load(), 1);  // the hot key during the upload sent nothing
    }

    void aFailingHostShowsTheErrorAndKeepsTheHistory()
    {
        m_uploadStatus = 500;
        PanelController *panel = m_delegate->panelController();
        UploadPanel *upload = m_delegate->uploadPanel();
        QSignalSpy done(panel, &PanelController::workFinished);
        panel->shootButton();
        QTRY_COMPARE_WITH_TIMEOUT(upload->copiedLabel()->text(), Texts::ErrorUploading, 10000);
        QVERIFY(done.wait(5000) || !done.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!upload->window()->isVisible(), 8000);
        QTRY_VERIFY(!m_delegate->uploadBlocked());
        QCOMPARE(Settings::stringList(Key::URLArray).size(), 1);
        m_uploadStatus = 200;
    }

    void aSlowAnswerToASilentCaptureStillArrives()
    {
        // The upload panel closes three seconds after the last byte went out; the answer
        // comes later, and the window-less controller of the silent capture must wait for it.
        m_answerDelayMs = 4500;
        const int before = Settings::stringList(Key::URLArray).size();
        m_delegate->hotkeyWithEventObject();
        QTRY_COMPARE_WITH_TIMEOUT(Settings::stringList(Key::URLArray).size(), before + 1, 15000);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("quil.lo/?x=Qx7"));
        m_answerDelayMs = 0;
        QTRY_VERIFY_WITH_TIMEOUT(!m_delegate->uploadBlocked(), 8000);
    }

    void theLinkListCopiesAllAndClears()
    {
        PanelController *panel = m_delegate->panelController();
        // After a silent capture the list is rebuilt when the panel next opens.
        QVERIFY(!Settings::boolValue(Key::ShotFromPC));
        panel->statusRectForWindow(panel->window());
        QCOMPARE(panel->clipboardPopUp()->count(), 5);
        panel->clipboardPopUpAction(1);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("quil.lo/?x=Qx7\nquil.lo/?x=Qx7\n"));
        panel->clipboardPopUpAction(2);
        QVERIFY(Settings::stringList(Key::URLArray).isEmpty());
        QCOMPARE(panel->outputAppLabel()->text(), Texts::ProducesURL);
        QVERIFY(!panel->clipboardPopUp()->isEnabled());
        QCOMPARE(panel->clipboardPopUp()->count(), 3);
    }
};

QTEST_MAIN(TestUploadFlow)
#include "test_upload_flow.moc"
