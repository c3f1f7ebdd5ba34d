// A capture from the panel to its output: naming, folders, labels, the chosen
// application, Return, cancelling, and a shoot during an upload. The grabber is the
// real one with its fake back end, so no screen interaction is needed.
#include "ApplicationDelegate.h"
#include "FileLabel.h"
#include "FileUrl.h"
#include "HoverPopUp.h"
#include "LiveSettings.h"
#include "NotificationCenter.h"
#include "PanelController.h"
#include "Settings.h"
#include "Texts.h"
#include "VYTextField.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QProcess>
#include <QLabel>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestCaptureFlow : public QObject
{
    Q_OBJECT

    std::unique_ptr<PanelController> m_panel;
    QString m_desktop;

    // Shoots from the panel and waits for the grabber to finish; answers the file (or empty).
    QString shoot()
    {
        QSignalSpy finished(m_panel.get(), &PanelController::captureFinished);
        m_panel->shootButton();
        if (!finished.wait(10000) && finished.isEmpty())
            return QStringLiteral("<timeout>");
        return finished.first().first().toString();
    }

    void clearDesktop()
    {
        QDir(m_desktop).removeRecursively();
        QDir().mkpath(m_desktop);
    }

private slots:
    void initTestCase()
    {
        qputenv("QUILLO_GRABBER_BACKEND", "fake");
        qputenv("QUILLO_GRABBER", QUILLO_BIN_DIR "/quillo-screencapture");
        qunsetenv("QUILLO_FAKE_CANCEL");
        m_desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
        Settings::resetAll();
        Settings::runLaunchSettingsWork();
        Settings::setValue(Key::Method, 3);
        m_panel = std::make_unique<PanelController>(nullptr);
        m_panel->statusRectForWindow(m_panel->window());  // the first opening's preparation
    }

    void init()
    {
        clearDesktop();
        m_panel->output1();
        m_panel->textShotName()->clear();
    }

    void numbersFilesThatExist()
    {
        QCOMPARE(shoot(), m_desktop + "/Quillo.jpg");
        QCOMPARE(shoot(), m_desktop + "/Quillo1.jpg");
        QCOMPARE(shoot(), m_desktop + "/Quillo2.jpg");
        QVERIFY(QImage(m_desktop + "/Quillo2.jpg").width() > 0);
    }

    void theFormatPopUpSetsTypeAndExtension()
    {
        m_panel->popUp()->setCurrentIndex(1);  // png
        m_panel->popUpAction();
        QCOMPARE(Settings::stringValue(Key::CaptureFileFormat), QStringLiteral("png"));
        QCOMPARE(Settings::intValue(Key::CaptureFileFormatMenu), 2);
        const QString file = shoot();
        QCOMPARE(file, m_desktop + "/Quillo.png");
        QCOMPARE(QImageReader(file).format(), QByteArray("png"));
        m_panel->popUp()->setCurrentIndex(0);
        m_panel->popUpAction();
    }

    void returnInTheNameFieldShoots()
    {
        m_panel->openPanel();
        QTRY_VERIFY(m_panel->window()->isActiveWindow());
        m_panel->textShotName()->setFocus();
        QTest::keyClicks(m_panel->textShotName(), "Typed");
        QSignalSpy finished(m_panel.get(), &PanelController::captureFinished);
        QTest::keyClick(m_panel->textShotName(), Qt::Key_Return);
        QVERIFY(finished.wait(10000));
        QCOMPARE(finished.first().first().toString(), m_desktop + "/Typed.jpg");
        QVERIFY(!m_panel->hasActivePanel());
    }

    void aMissingCustomFolderFallsBackToTheDesktop()
    {
        LiveSettings &live = LiveSettings::shared();
        live.customPathEnabled = true;
        live.customSavePath = FileUrl::toStoredForm(QDir::tempPath() + "/gone away", true);
        live.savePathLabel = QStringLiteral("Saves to /gone away");
        Settings::setValue(Key::CustomPath, true);
        QCOMPARE(shoot(), m_desktop + "/Quillo.jpg");
        QVERIFY(!live.customPathEnabled);
        QVERIFY(!Settings::boolValue(Key::CustomPath));
        QCOMPARE(m_panel->outputAppLabel()->text(), Texts::SavesToDesktop);
        QCOMPARE(m_panel->popUpPrefs()->itemText(m_panel->popUpPrefs()->findData(1)), Texts::SetSavePath);
    }

    void anExistingCustomFolderWithBlanksAndEscapesIsUsed()
    {
        QTemporaryDir dir(QDir::tempPath() + "/My Shots #%1-XXXXXX");
        QVERIFY(dir.isValid());
        LiveSettings &live = LiveSettings::shared();
        live.customPathEnabled = true;
        live.customSavePath = FileUrl::toStoredForm(dir.path(), true);
        QVERIFY(live.customSavePath.startsWith("file://localhost/"));
        QCOMPARE(shoot(), dir.path() + "/Quillo.jpg");
        live.customPathEnabled = false;
    }

    void aSavedFileGetsItsColourLabel()
    {
        LiveSettings::shared().finderLabelIndex = QStringLiteral("2");
        const QString file = shoot();
        LiveSettings::shared().finderLabelIndex = QStringLiteral("0");
        QVERIFY(QFile::exists(file));
        if (FileLabel::tags(file).isEmpty() && !FileLabel::apply(file, 2))
            QSKIP("this file system keeps no user extended attributes");
        QVERIFY(FileLabel::tags(file).contains(QStringLiteral("Red")));
    }

    void outputThreeOpensTheChosenApplication()
    {
        QTemporaryDir apps;
        const QString log = apps.filePath("opened.txt");
        const QString script = apps.filePath("viewer.sh");
        QFile s(script);
        QVERIFY(s.open(QIODevice::WriteOnly));
        s.write(QStringLiteral("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1'\n").arg(log).toUtf8());
        s.close();
        s.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        const QString entry = apps.filePath("test viewer.desktop");
        QFile e(entry);
        QVERIFY(e.open(QIODevice::WriteOnly));
        e.write(QStringLiteral("[Desktop Entry]\nType=Application\nName=Test Viewer\nExec=%1 --view %f\n"
                               "MimeType=image/jpeg;\n").arg(script).toUtf8());
        e.close();

        LiveSettings &live = LiveSettings::shared();
        live.customAppEnabled = true;
        live.customAppPath = FileUrl::toStoredForm(entry, false);
        Settings::setValues({{Key::CustomApp, true}, {Key::CustomAppPath, live.customAppPath}});
        m_panel->output3();
        const QString file = shoot();
        QVERIFY(file.startsWith(QDir::tempPath()));
        QTRY_VERIFY(QFile::exists(log));
        QFile opened(log);
        QVERIFY(opened.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(opened.readAll()).split('\n', Qt::SkipEmptyParts),
                 (QStringList{"--view", file}));
        QVERIFY(live.tempFilePending);

        // The next capture sends the previous temporary file to the Trash.
        live.customAppEnabled = false;
        Settings::setValue(Key::CustomApp, false);
        m_panel->output1();
        shoot();
        QVERIFY(!QFile::exists(file));
        QVERIFY(!live.tempFilePending);
    }

    void aCancelledCaptureLeavesNothing()
    {
        qputenv("QUILLO_FAKE_CANCEL", "1");
        QCOMPARE(shoot(), QString());
        qunsetenv("QUILLO_FAKE_CANCEL");
        QVERIFY(QDir(m_desktop).entryList(QDir::Files).isEmpty());
    }

    void aShootDuringAnUploadStartsNothing()
    {
        Settings::setValues({{Key::SplashScreen, false}, {Key::Hotkey, false}});
        ApplicationDelegate delegate;
        delegate.applicationDidFinishLaunching();
        NotificationCenter::defaultCenter().post(Notifications::UploadStarted);
        QVERIFY(delegate.uploadBlocked());
        Settings::setValue(Key::ShotFromPC, false);
        QSignalSpy finished(m_panel.get(), &PanelController::captureFinished);
        m_panel->shootButton();
        QVERIFY(!finished.wait(1000));
        QVERIFY(Settings::boolValue(Key::ShotFromPC));
        QVERIFY(QDir(m_desktop).entryList(QDir::Files).isEmpty());
        NotificationCenter::defaultCenter().post(Notifications::UploadEnded);
    }

    void quilloCaptureWithoutARunningQuilloCapturesOnce()
    {
        Settings::setValues({{Key::Output, 1}, {Key::Method, 3}});
        QProcess quillo;
        quillo.start(QStringLiteral(QUILLO_BIN_DIR "/quillo"), {QStringLiteral("--capture")});
        QVERIFY(quillo.waitForFinished(15000));
        QCOMPARE(quillo.exitCode(), 0);
        QVERIFY(QFile::exists(m_desktop + "/Quillo.jpg"));
    }

    void theSilentCaptureIsNamedQuillo()
    {
        ApplicationDelegate delegate;
        QFile(m_desktop + "/Quillo.jpg").open(QIODevice::WriteOnly);
        delegate.hotkeyWithEventObject();
        QTRY_VERIFY_WITH_TIMEOUT(QDir(m_desktop).entryList(QDir::Files).size() == 2, 10000);
        const QStringList files = QDir(m_desktop).entryList(QDir::Files);
        QVERIFY(files.contains("Quillo1.jpg") || files.contains("Typed1.jpg"));
        for (const QString &f : files)
            QVERIFY(!f.contains("null"));
        QVERIFY(!Settings::boolValue(Key::ShotFromPC));
    }
};

QTEST_MAIN(TestCaptureFlow)
#include "test_capture_flow.moc"
