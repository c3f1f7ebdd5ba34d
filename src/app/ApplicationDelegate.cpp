#include "ApplicationDelegate.h"

#include "HotKeyBindings.h"
#include "MenubarController.h"
#include "NotificationCenter.h"
#include "Settings.h"
#include "SplashWindow.h"
#include "StatusItemView.h"

#include <QTimer>

ApplicationDelegate::ApplicationDelegate(QObject *parent) : QObject(parent)
{
    ApplicationHub::setInstance(this);
}

ApplicationDelegate::~ApplicationDelegate()
{
    NotificationCenter::defaultCenter().removeObserver(this);
    if (ApplicationHub::instance() == this)
        ApplicationHub::setInstance(nullptr);
}

void ApplicationDelegate::applicationDidFinishLaunching()
{
    m_menubarController = std::make_unique<MenubarController>([this] { togglePanel(); });
    Settings::runLaunchSettingsWork();
    if (!Settings::boolValue(Key::ToggleHotkeyFirstRun)) {
        registerHotKeys();
        Settings::setValue(Key::ToggleHotkeyFirstRun, false);
    }
    if (Settings::boolValue(Key::SplashScreen))
        splashWindow();
    if (Settings::boolValue(Key::Hotkey))
        registerHotKeys();
    NotificationCenter &center = NotificationCenter::defaultCenter();
    for (const QString &name : {Notifications::UploadStarted, Notifications::UploadEnded})
        center.addObserver(name, this, [this](const QString &n) { blockPanelControllerDuringUpload(n); });
}

void ApplicationDelegate::applicationShouldTerminate()
{
    m_menubarController.reset();
}

void ApplicationDelegate::registerHotKeys()
{
    HotKeyBindings::registerBindings(this);
}

PanelController *ApplicationDelegate::panelController()
{
    if (!m_panelController) {
        m_panelController = std::make_unique<PanelController>(this);
        // The icon's highlight follows the panel, also when it closes by itself.
        connect(m_panelController.get(), &PanelController::hasActivePanelChanged, this, [this] {
            if (m_menubarController)
                m_menubarController->setHasActiveIcon(m_panelController->hasActivePanel());
        });
    }
    return m_panelController.get();
}

UploadPanel *ApplicationDelegate::uploadPanel()
{
    if (!m_uploadPanel)
        m_uploadPanel = std::make_unique<UploadPanel>([this] {
            StatusItemView *view = statusItemViewForUploadPanel(m_uploadPanel.get());
            return view ? view->globalRect() : QRect();
        });
    return m_uploadPanel.get();
}

void ApplicationDelegate::togglePanel()
{
    if (m_uploadBlocked || !m_menubarController)
        return;
    PanelController *panel = panelController();
    // A click on the icon first takes the focus from the open panel, which closes it;
    // the click itself must not open it again.
    if (!panel->hasActivePanel() && panel->closedByFocusLossJustNow())
        return;
    m_menubarController->setHasActiveIcon(!m_menubarController->hasActiveIcon());
    panel->setHasActivePanel(m_menubarController->hasActiveIcon());
}

void ApplicationDelegate::toggleUploadPanel()
{
    uploadPanel()->setHasActivePanel(!uploadPanel()->hasActivePanel());
}

void ApplicationDelegate::openUploadPanel()
{
    uploadPanel()->setHasActivePanel(true);
}

void ApplicationDelegate::closeUploadPanel()
{
    uploadPanel()->setHasActivePanel(false);
}

void ApplicationDelegate::closeUploadPanelSlowly()
{
    QTimer::singleShot(2000, this, [this] { uploadPanel()->setHasActivePanel(false); });
}

void ApplicationDelegate::splashWindow()
{
    auto *splash = new SplashWindow(m_menubarController ? m_menubarController->statusItemView() : nullptr);
    connect(splash, &SplashWindow::closeSplash, this, &ApplicationDelegate::closeSplash);
    m_splash = splash;
    splash->present();
}

void ApplicationDelegate::splashWindowClose()
{
    if (m_splash)
        m_splash->close();
}

void ApplicationDelegate::closeSplash()
{
    if (m_splash)
        m_splash->close();
    togglePanel();
    Settings::setValue(Key::SplashScreen, false);
}

void ApplicationDelegate::hotkeyWithEvent()
{
    togglePanel();
}

void ApplicationDelegate::hotkeyWithEventObject()
{
    if (m_uploadBlocked)
        return;
    Settings::setValue(Key::ShotFromPC, false);
    // A fresh, window-less controller per press; it goes once its capture (and upload) is done.
    auto *controller = new PanelController;
    controller->setParent(this);
    connect(controller, &PanelController::workFinished, controller, &QObject::deleteLater);
    controller->userDefaults();
    controller->quillo(shotNameGlobal);
}

StatusItemView *ApplicationDelegate::statusItemViewForPanelController(PanelController *)
{
    return m_menubarController ? m_menubarController->statusItemView() : nullptr;
}

StatusItemView *ApplicationDelegate::statusItemViewForUploadPanel(UploadPanel *)
{
    return m_menubarController ? m_menubarController->statusItemView() : nullptr;
}

void ApplicationDelegate::blockPanelControllerDuringUpload(const QString &name)
{
    if (name == Notifications::UploadStarted)
        m_uploadBlocked = true;
    if (name == Notifications::UploadEnded)
        m_uploadBlocked = false;
}
