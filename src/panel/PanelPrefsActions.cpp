// The preferences menu, its two pickers, start at login and the hot key switch.
#include "PanelController.h"

#include "AppPickerDialog.h"
#include "ApplicationHub.h"
#include "Autostart.h"
#include "FileUrl.h"
#include "HelpPage.h"
#include "HotKeyBindings.h"
#include "HoverPopUp.h"
#include "LiveSettings.h"
#include "Panel.h"
#include "PanelPlacement.h"
#include "Settings.h"
#include "StatusItemView.h"
#include "Texts.h"
#include "ui_Panel.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

PanelController::PickerSession::PickerSession(PanelController *controller) : m_controller(controller)
{
    LiveSettings::shared().pickerOpen = true;  // hiding for a picker is no loss of focus
    m_controller->closePanel();
}

PanelController::PickerSession::~PickerSession()
{
    LiveSettings::shared().pickerOpen = false;
    m_controller->openPanel();
}

QScreen *PanelController::iconScreen() const
{
    StatusItemView *view = m_delegate ? m_delegate->statusItemViewForPanelController(
                                            const_cast<PanelController *>(this))
                                      : nullptr;
    return view ? view->screen() : QGuiApplication::primaryScreen();
}

void PanelController::popUpPrefsAction(int index)
{
    LiveSettings &live = LiveSettings::shared();
    const int tag = m_ui ? m_ui->popUpPrefs->itemData(index).toInt() : index;
    auto applyShadowTitle = [this, &live] {
        if (live.shadowsEnabled) {
            setPrefsItemTitle(5, Texts::checked(Texts::GrabWindowShadows));
            Settings::setValues({{Key::MethodShadow, true},
                                 {Key::ShadowPrefTitle, Texts::checked(Texts::GrabWindowShadows)}});
        } else {
            setPrefsItemTitle(5, Texts::GrabWindowShadows);
            Settings::setValue(Key::MethodShadow, false);
        }
    };

    switch (tag) {
    case 1:
        pathBrowserButtonAction();
        live.lastPrefsItem = 1;
        break;
    case 2:
        pathAppBrowser();
        live.lastPrefsItem = 2;
        break;
    case 3:
        live.hotkeysEnabled = !live.hotkeysEnabled;
        enableHotkey();
        live.lastPrefsItem = 3;
        break;
    case 4:
        startupSwitch();
        live.lastPrefsItem = 4;
        break;
    case 5:
        live.shadowsEnabled = !live.shadowsEnabled;
        live.lastPrefsItem = 5;
        applyShadowTitle();
        break;
    case 6: {
        const QString linkHost = Settings::stringValue(Key::LinkHost);
        QDesktopServices::openUrl(linkHost.isEmpty() ? HelpPage::installedUrl()
                                                     : QUrl(QStringLiteral("http://") + linkHost));
        live.lastPrefsItem = 6;
        break;
    }
    case 7:
        deletePreviousTempFile();
        QCoreApplication::exit(0);
        return;
    case kImportUploaderTag:
        importUploader();
        break;
    default:
        if (tag >= kFirstUploaderTag)
            chooseUploader(tag);
        else if (live.lastPrefsItem == 5)
            applyShadowTitle();
        break;
    }
    colorizePrefs();
}

void PanelController::pathBrowserButtonAction()
{
    LiveSettings &live = LiveSettings::shared();
    PickerSession picker(this);

    QFileDialog dialog(nullptr, QStringLiteral("Quillo"),
                       QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Select"));
    dialog.setLabelText(QFileDialog::LookIn, Texts::SetSavePath);
    dialog.resize(640, 420);
    if (QScreen *screen = iconScreen())
        dialog.setGeometry(PanelPlacement::centre(dialog.size(), screen->availableGeometry()));

    const QStringList chosen = dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
    if (!chosen.isEmpty() && !FileUrl::toStoredForm(chosen.first(), true).isEmpty()) {
        const QString folder = chosen.first();
        live.customSavePath = FileUrl::toStoredForm(folder, true);
        live.customPathEnabled = true;
        live.savePathLabel = FileUrl::saveFolderLabel(folder);
        // The output switches to "save" on screen; the stored output keeps its value.
        applyOutput(1);
        colorizeButtons2();
        setOutputLabel(live.savePathLabel);
        setPrefsItemTitle(1, Texts::checked(Texts::SetSavePath));
        Settings::setValues({{Key::CustomPath, true},
                             {Key::CustomPathSaved, live.customSavePath},
                             {Key::CustomPathLabel, live.savePathLabel},
                             {Key::CustomPathPrefTitle, Texts::checked(Texts::SetSavePath)}});
    } else {
        if (live.customPathEnabled)
            setPrefsItemTitle(1, Texts::SetSavePath);
        live.customPathEnabled = false;
        live.savePathLabel = Texts::SavesToDesktop;
        if (live.selectedOutput == 1)
            setOutputLabel(live.savePathLabel);
        Settings::setValue(Key::CustomPath, false);
    }
}

void PanelController::pathAppBrowser()
{
    LiveSettings &live = LiveSettings::shared();
    PickerSession picker(this);

    const std::optional<CatalogueApp> app =
        AppPickerDialog::pick(iconScreen(), FileUrl::pathFromStoredForm(live.customAppPath));
    if (app) {
        live.customAppPath = FileUrl::toStoredForm(app->entryPath, false);
        live.appLabel = Texts::OpensIn.arg(app->name);
        live.customAppEnabled = true;
        applyOutput(3);
        colorizeButtons2();
        setOutputLabel(live.appLabel);
        setPrefsItemTitle(2, Texts::checked(Texts::SetOutputApp));
        Settings::setValues({{Key::CustomApp, true},
                             {Key::CustomAppPath, live.customAppPath},
                             {Key::CustomAppTitle, live.appLabel},
                             {Key::CustomAppPrefLabel, Texts::checked(Texts::SetOutputApp)}});
    } else {
        resetOutputApp();
    }
}

// Back to the default viewer ("Opens in Preview"), remembered in the settings.
void PanelController::resetOutputApp()
{
    LiveSettings &live = LiveSettings::shared();
    live.customAppEnabled = false;
    live.appLabel = Texts::OpensInPreview;
    setPrefsItemTitle(2, Texts::SetOutputApp);
    if (live.selectedOutput == 3)
        setOutputLabel(live.appLabel);
    Settings::setValues({{Key::CustomApp, false}, {Key::CustomAppTitle, live.appLabel}});
}

bool PanelController::isLoginItem()
{
    return Autostart().isLoginItem();
}

void PanelController::addAppAsLoginItem()
{
    Autostart().addAppAsLoginItem();
}

void PanelController::removeAppFromLoginItems()
{
    Autostart().removeAppFromLoginItems();
}

void PanelController::startupSwitch()
{
    LiveSettings &live = LiveSettings::shared();
    if (isLoginItem()) {
        removeAppFromLoginItems();
        live.loginItemEnabled = false;
        setPrefsItemTitle(4, Texts::RunOnStartup);
    } else {
        addAppAsLoginItem();
        live.loginItemEnabled = true;
        setPrefsItemTitle(4, Texts::checked(Texts::RunOnStartup));
        Settings::setValue(Key::StartupPrefTitle, Texts::checked(Texts::RunOnStartup));
    }
}

void PanelController::enableHotkey()
{
    if (LiveSettings::shared().hotkeysEnabled) {
        setPrefsItemTitle(3, Texts::checked(Texts::Hotkeys));
        Settings::setValues({{Key::Hotkey, true}, {Key::HotkeyPrefTitle, Texts::checked(Texts::Hotkeys)}});
        registerHotkey();
    } else {
        setPrefsItemTitle(3, Texts::Hotkeys);
        Settings::setValue(Key::Hotkey, false);
        unRegisterHotkey();
    }
}

void PanelController::registerHotkey()
{
    HotKeyBindings::registerBindings(this);
}

void PanelController::unRegisterHotkey()
{
    HotKeyBindings::unregisterBindings();
}

void PanelController::hotkeyWithEvent()
{
    if (ApplicationHub *hub = ApplicationHub::instance())
        hub->togglePanel();
}

void PanelController::hotkeyWithEventObject()
{
    shootButton();
}
