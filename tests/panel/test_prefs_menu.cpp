// The preferences menu: every item's effect on the settings and the titles, the two
// pickers driven through their dialogs, and start at login.
#include "AppPickerDialog.h"
#include "Autostart.h"
#include "FileUrl.h"
#include "HoverButton.h"
#include "HoverPopUp.h"
#include "RWColorWell.h"
#include "LiveSettings.h"
#include "PanelController.h"
#include "Settings.h"
#include "Texts.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

class UrlCatcher : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public slots:
    void open(const QUrl &url) { opened << url; }
};

class TestPrefsMenu : public QObject
{
    Q_OBJECT

    std::unique_ptr<PanelController> m_panel;

    QString title(int tag) const { return m_panel->popUpPrefs()->itemText(m_panel->popUpPrefs()->findData(tag)); }
    void choose(int tag) { m_panel->popUpPrefsAction(m_panel->popUpPrefs()->findData(tag)); }

    // Runs `drive` on the modal dialog as soon as it shows.
    static void whenModal(std::function<void(QWidget *)> drive)
    {
        auto *poll = new QTimer;
        poll->setInterval(50);
        QObject::connect(poll, &QTimer::timeout, [poll, drive] {
            if (QWidget *modal = QApplication::activeModalWidget(); modal && modal->isVisible()) {
                poll->stop();
                poll->deleteLater();
                drive(modal);
            }
        });
        poll->start();
    }

private slots:
    void initTestCase()
    {
        Settings::resetAll();
        Settings::runLaunchSettingsWork();
        m_panel = std::make_unique<PanelController>(nullptr);
        m_panel->statusRectForWindow(m_panel->window());
    }

    void theHotKeyItemSwitchesAndRetitles()
    {
        QCOMPARE(title(3), Texts::checked(Texts::Hotkeys));
        choose(3);
        QCOMPARE(title(3), Texts::Hotkeys);
        QVERIFY(!Settings::boolValue(Key::Hotkey));
        choose(3);
        QCOMPARE(title(3), Texts::checked(Texts::Hotkeys));
        QVERIFY(Settings::boolValue(Key::Hotkey));
        QCOMPARE(Settings::stringValue(Key::HotkeyPrefTitle), Texts::checked(Texts::Hotkeys));
    }

    void shadowsSwitchKeepsTheirStoredTitle()
    {
        choose(5);
        QCOMPARE(title(5), Texts::checked(Texts::GrabWindowShadows));
        QVERIFY(Settings::boolValue(Key::MethodShadow));
        QVERIFY(LiveSettings::shared().shadowsEnabled);
        choose(5);
        QCOMPARE(title(5), Texts::GrabWindowShadows);
        QVERIFY(!Settings::boolValue(Key::MethodShadow));
        QCOMPARE(Settings::stringValue(Key::ShadowPrefTitle), Texts::checked(Texts::GrabWindowShadows));
    }

    void startAtLoginFollowsTheAutostartFolder()
    {
        const QString entry = Autostart::entryFilePath();
        QVERIFY(!QFile::exists(entry));
        choose(4);
        QVERIFY(QFile::exists(entry));
        QCOMPARE(title(4), Texts::checked(Texts::RunOnStartup));
        QVERIFY(LiveSettings::shared().loginItemEnabled);
        QCOMPARE(Settings::stringValue(Key::StartupPrefTitle), Texts::checked(Texts::RunOnStartup));

        // Removed from outside: the next switch adds it again instead of removing.
        QFile::remove(entry);
        QVERIFY(!m_panel->isLoginItem());
        choose(4);
        QVERIFY(QFile::exists(entry));
        choose(4);
        QVERIFY(!QFile::exists(entry));
        QCOMPARE(title(4), Texts::RunOnStartup);
    }

    void theWebSiteItemOpensTheLinkHost()
    {
        UrlCatcher catcher;
        QDesktopServices::setUrlHandler("http", &catcher, "open");
        Settings::setValue(Key::LinkHost, QStringLiteral("links.example"));
        choose(6);
        QDesktopServices::unsetUrlHandler("http");
        QCOMPARE(catcher.opened, QList<QUrl>{QUrl("http://links.example")});
        QCOMPARE(LiveSettings::shared().lastPrefsItem, 6);
    }

    void theFolderPickerSetsTheSaveFolder()
    {
        QTemporaryDir dir(QDir::tempPath() + "/Pictures XXXXXX");
        m_panel->output2();
        whenModal([&dir](QWidget *modal) {
            auto *dialog = qobject_cast<QFileDialog *>(modal);
            QVERIFY(dialog);
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Quillo"));
            dialog->setDirectory(dir.path());
            static_cast<QDialog *>(dialog)->accept();
        });
        choose(1);
        const QString name = QDir(dir.path()).dirName();
        QCOMPARE(m_panel->outputAppLabel()->text(), "Saves to /" + name);
        QCOMPARE(title(1), Texts::checked(Texts::SetSavePath));
        QVERIFY(Settings::boolValue(Key::CustomPath));
        QCOMPARE(FileUrl::pathFromStoredForm(Settings::stringValue(Key::CustomPathSaved)), dir.path() + "/");
        QCOMPARE(LiveSettings::shared().selectedOutput, 1);
        QCOMPARE(m_panel->outputButton(1)->imageName(), QStringLiteral("butt3"));
        QCOMPARE(m_panel->outputButton(2)->imageName(), QStringLiteral("butt0"));
        QVERIFY(m_panel->colorLabelPopper()->isEnabled());
        QCOMPARE(Settings::intValue(Key::Output), 2);  // the stored output keeps its value
        QVERIFY(m_panel->window()->isVisible());
        QVERIFY(!LiveSettings::shared().pickerOpen);

        whenModal([](QWidget *modal) { static_cast<QDialog *>(modal)->reject(); });
        choose(1);
        QCOMPARE(m_panel->outputAppLabel()->text(), Texts::SavesToDesktop);
        QCOMPARE(title(1), Texts::SetSavePath);
        QVERIFY(!Settings::boolValue(Key::CustomPath));
        QVERIFY(!Settings::stringValue(Key::CustomPathSaved).isEmpty());
    }

    void theApplicationPickerSetsTheOutputApplication()
    {
        const QString apps = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/applications";
        QDir().mkpath(apps);
        QFile entry(apps + "/quillo-test-viewer.desktop");
        QVERIFY(entry.open(QIODevice::WriteOnly));
        entry.write("[Desktop Entry]\nType=Application\nName=Test Viewer\nExec=true %f\nMimeType=image/png;\n");
        entry.close();

        whenModal([](QWidget *modal) {
            auto *dialog = qobject_cast<AppPickerDialog *>(modal);
            QVERIFY(dialog);
            const auto found = dialog->list()->findItems("Test Viewer", Qt::MatchExactly);
            QCOMPARE(found.size(), 1);
            dialog->list()->setCurrentItem(found.first());
            dialog->selectButton()->click();
        });
        choose(2);
        QCOMPARE(m_panel->outputAppLabel()->text(), QStringLiteral("Opens in Test Viewer"));
        QCOMPARE(title(2), Texts::checked(Texts::SetOutputApp));
        QVERIFY(Settings::boolValue(Key::CustomApp));
        QCOMPARE(FileUrl::pathFromStoredForm(Settings::stringValue(Key::CustomAppPath)), entry.fileName());
        QCOMPARE(LiveSettings::shared().selectedOutput, 3);

        whenModal([](QWidget *modal) { static_cast<QDialog *>(modal)->reject(); });
        choose(2);
        QCOMPARE(m_panel->outputAppLabel()->text(), Texts::OpensInPreview);
        QCOMPARE(title(2), Texts::SetOutputApp);
        QVERIFY(!Settings::boolValue(Key::CustomApp));
        QCOMPARE(Settings::stringValue(Key::CustomAppTitle), Texts::OpensInPreview);
    }

    void settingsLoadIntoTheMenuTitles()
    {
        // A second controller loads what the first one stored (the live state is shared).
        Settings::setValues({{Key::MethodShadow, true}, {Key::Hotkey, true}});
        PanelController other(nullptr);
        other.userDefaults();
        auto titleOf = [&other](int tag) { return other.popUpPrefs()->itemText(other.popUpPrefs()->findData(tag)); };
        QCOMPARE(titleOf(5), Texts::checked(Texts::GrabWindowShadows));
        QCOMPARE(titleOf(3), Texts::checked(Texts::Hotkeys));
        QCOMPARE(titleOf(1), Texts::SetSavePath);
    }
};

QTEST_MAIN(TestPrefsMenu)
#include "test_prefs_menu.moc"
