// The settings store: first launch, per-launch values, absent keys, a broken file.
#include "Settings.h"
#include "Texts.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

class TestSettings : public QObject
{
    Q_OBJECT
private slots:
    void init() { Settings::resetAll(); }

    void firstLaunchSeedsTheSettings()
    {
        QVERIFY(Settings::runLaunchSettingsWork());
        QCOMPARE(Settings::intValue(Key::Method), 1);
        QCOMPARE(Settings::intValue(Key::Output), 1);
        QVERIFY(Settings::boolValue(Key::AppOpened));
        QVERIFY(Settings::boolValue(Key::Hotkey));
        QVERIFY(Settings::boolValue(Key::ToggleHotkeyFirstRun));
        QVERIFY(Settings::boolValue(Key::SplashScreen));
        QCOMPARE(Settings::stringValue(Key::HotkeyPrefTitle), Texts::checked(Texts::Hotkeys));
        QVERIFY(Settings::contains(Key::URLArray));
        QVERIFY(Settings::stringList(Key::URLArray).isEmpty());
        QVERIFY(Settings::boolValue(Key::ShotFromPC));
        QVERIFY(!Settings::boolValue(Key::Pasted));

        // What another process reads from the file is the same.
        QSettings fromDisk(Settings::filePath(), QSettings::IniFormat);
        QCOMPARE(fromDisk.value(QStringLiteral("method")).toInt(), 1);
        QVERIFY(Settings::filePath().endsWith(QLatin1String("/Quillo/Quillo.conf")));
    }

    void laterLaunchesKeepTheSettingsButResetPerLaunchValues()
    {
        Settings::runLaunchSettingsWork();
        Settings::setValues({{Key::Method, 3}, {Key::SplashScreen, false}, {Key::ShotFromPC, false},
                             {Key::Pasted, true}, {Key::URLArray, QStringList{"a", "b"}}});
        QVERIFY(!Settings::runLaunchSettingsWork());
        QCOMPARE(Settings::intValue(Key::Method), 3);
        QVERIFY(!Settings::boolValue(Key::SplashScreen));
        QVERIFY(Settings::boolValue(Key::ShotFromPC));
        QVERIFY(!Settings::boolValue(Key::Pasted));
        QCOMPARE(Settings::stringList(Key::URLArray), (QStringList{"a", "b"}));
    }

    void absentKeysReadAsTheirTableValue()
    {
        QVERIFY(!Settings::boolValue(Key::CustomPath));
        QCOMPARE(Settings::intValue(Key::CaptureFileFormatMenu), 0);
        QVERIFY(Settings::stringValue(Key::CustomAppPath).isNull());
        QCOMPARE(Settings::stringValue(Key::ShortenerUrl), QStringLiteral("https://is.gd/create.php"));
        QCOMPARE(Settings::stringValue(Key::Uploader), QStringLiteral("Catbox"));
        QVERIFY(!Settings::contains(Key::ShortenerUrl));
    }

    void aSingleLinkSurvivesTheRoundTrip()
    {
        Settings::setValue(Key::URLArray, QStringList{QStringLiteral("is.gd/abc")});
        Settings::store().sync();
        QCOMPARE(Settings::stringList(Key::URLArray), QStringList{QStringLiteral("is.gd/abc")});
    }

    void resetRemovesEveryKey()
    {
        Settings::runLaunchSettingsWork();
        Settings::resetAll();
        QVERIFY(Settings::store().allKeys().isEmpty());
    }

    void garbageInTheFileIsSurvived()
    {
        Settings::store().sync();
        QFile file(Settings::filePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("\xff\xfe[General\nmethod=\x01\x02\nURLArray=@Variant(\\0\\0\\0\\x7f)\n===\n");
        file.close();
        Settings::store().sync();  // re-reads the changed file
        QCOMPARE(Settings::intValue(Key::Method), 0);
        QVERIFY(Settings::stringList(Key::URLArray).size() <= 1);
        Settings::runLaunchSettingsWork();
        QCOMPARE(Settings::intValue(Key::Method), 1);
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
