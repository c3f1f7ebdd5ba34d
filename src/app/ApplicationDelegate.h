#pragma once
// The hub of Quillo: creates the tray icon, runs the launch work, owns the panels,
// routes the icon's click and the hot keys, and keeps the panel shut during an upload.

#include "ApplicationHub.h"
#include "PanelController.h"
#include "UploadPanel.h"

#include <QObject>
#include <QPointer>
#include <memory>

class MenubarController;
#include "SplashWindow.h"

class ApplicationDelegate : public QObject,
                            public ApplicationHub,
                            public PanelControllerDelegate
{
    Q_OBJECT
public:
    explicit ApplicationDelegate(QObject *parent = nullptr);
    ~ApplicationDelegate() override;

    void applicationDidFinishLaunching();
    // Removes the tray icon; the process ends right after.
    void applicationShouldTerminate();

    PanelController *panelController();
    UploadPanel *uploadPanel();
    MenubarController *menubarController() const { return m_menubarController.get(); }
    SplashWindow *splash() const { return m_splash; }

    // ApplicationHub
    void togglePanel() override;
    void openUploadPanel() override;
    void closeUploadPanel() override;
    void closeUploadPanelSlowly() override;
    void splashWindow() override;
    void splashWindowClose() override;
    bool uploadBlocked() const override { return m_uploadBlocked; }

    void toggleUploadPanel();
    void closeSplash();
    Q_INVOKABLE void hotkeyWithEvent();
    Q_INVOKABLE void hotkeyWithEventObject();
    void registerHotKeys();

    StatusItemView *statusItemViewForPanelController(PanelController *controller) override;
    StatusItemView *statusItemViewForUploadPanel(UploadPanel *panel);

    QString shotNameGlobal;  // never assigned: silent captures have no name

private:
    void blockPanelControllerDuringUpload(const QString &name);

    std::unique_ptr<MenubarController> m_menubarController;
    std::unique_ptr<PanelController> m_panelController;
    std::unique_ptr<UploadPanel> m_uploadPanel;
    QPointer<SplashWindow> m_splash;
    bool m_uploadBlocked = false;
};
