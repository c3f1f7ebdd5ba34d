#pragma once
// The attached panel's controller. Created with a delegate it owns the panel window;
// created without one (a silent capture) it has no window and only loads the settings
// and captures. Its actions keep the names the rest of Quillo uses; the work itself
// lives in the capture, upload and prefs units.

#include "Panel.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <memory>

class PanelController;
class QComboBox;
class QLabel;
class QLineEdit;
class QProcess;
class QPushButton;
class QScreen;
class QTimer;
class QWidget;
class StatusItemView;
class HoverButton;
class HoverButtonEdit;
class HoverButtonMatrix;
class HoverButtonX;
class HoverPopUp;
class HoverPopUpPrefs;
class RWColorWell;
class VYTextField;
namespace Ui { class Panel; }

class PanelControllerDelegate
{
public:
    virtual ~PanelControllerDelegate() = default;
    virtual StatusItemView *statusItemViewForPanelController(PanelController *controller) = 0;
};

class PanelController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hasActivePanel READ hasActivePanel WRITE setHasActivePanel NOTIFY hasActivePanelChanged)
public:
    PanelController();  // no window: a silent capture
    explicit PanelController(PanelControllerDelegate *delegate);
    ~PanelController() override;

    static constexpr int kPanelWidth = 280;
    static constexpr int kPanelHeight = 280;

    // Window side.
    bool hasActivePanel() const { return m_hasActivePanel; }
    void setHasActivePanel(bool active);
    void openPanel();
    void closePanel();
    QRect statusRectForWindow(QWidget *window);
    Panel *window() const { return m_window; }
    // The panel closed because it lost focus a moment ago (a click on the icon does that).
    bool closedByFocusLossJustNow() const;
    PanelControllerDelegate *delegate() const { return m_delegate; }

    // Settings.
    void userDefaults();

    // Capture options.
    void method1();
    void method2();
    void method3();
    void output1();
    void output2();
    void output3();
    void CaptureOutputAction();
    void invisibleOutputButtonAction();
    void popUpAction();
    void xButtonAction();
    void textNotify();
    void shootButton();

    // Capture run and outputs.
    void quillo(const QString &name);
    static bool captureRunning();
    void counter();
    void counter2();
    void deletePreviousTempFile();
    void finderLabel(const QString &labelIndex);
    void copyToClipboard(const QString &text);
    void splashRevive();
    void splashClose();

    // Upload and link list.
    void curler(const QString &path);
    void buildListURLs();
    void clipboardPopUpAction(int index);
    void copyAllURLSToClipboard(const QString &text);

    // Preferences.
    void popUpPrefsAction(int index);
    void pathBrowserButtonAction();
    void pathAppBrowser();
    bool isLoginItem();
    void addAppAsLoginItem();
    void removeAppFromLoginItems();
    void startupSwitch();

    // Upload destinations (items after the seven fixed preferences items).
    static constexpr int kImportUploaderTag = 99;
    static constexpr int kFirstUploaderTag = 100;
    void refreshUploaderItems();
    void chooseUploader(int tag);
    void importUploader();

    // Hot keys.
    void registerHotkey();
    void unRegisterHotkey();
    void enableHotkey();
    Q_INVOKABLE void hotkeyWithEvent();
    Q_INVOKABLE void hotkeyWithEventObject();

    // Theme colouring.
    void colorizeButtons();
    void colorizeButtons2();
    void colorizePrefs();
    void colorizeClipboardList();

    // Outlets (null without a window).
    HoverPopUp *popUp() const;
    VYTextField *textShotName() const;
    HoverPopUpPrefs *popUpPrefs() const;
    QLabel *outputAppLabel() const;
    QComboBox *clipboardPopUp() const;
    QLabel *shade() const;
    HoverButton *shootButt() const;
    HoverButtonMatrix *methodButton(int n) const;
    HoverButtonMatrix *outputButton(int n) const;
    HoverButtonX *xButton() const;
    HoverButtonEdit *invisibleOutputButton() const;
    RWColorWell *colorLabelPopper() const;

signals:
    void hasActivePanelChanged(bool active);
    // A capture ended: the file (empty when none was written) and the grabber's exit code.
    void captureFinished(const QString &path, int exitCode);
    // Nothing of this controller's capture is under way any more (file handled, upload over).
    void workFinished();

private:
    // While a picker is up the panel is hidden and Return does not shoot.
    class PickerSession
    {
    public:
        explicit PickerSession(PanelController *controller);
        ~PickerSession();

    private:
        PanelController *m_controller;
    };

    QScreen *iconScreen() const;
    void loadWindow();
    void setUpLinkList();
    void prepareOnce();
    void setPrefsItemTitle(int tag, const QString &title);
    void setOutputLabel(const QString &text);
    void setLinkListEnabled(bool enabled);
    void selectMethod(int n);
    void selectOutput(int n);
    void applyOutput(int n);
    void resetOutputApp();  // the chosen output's look and state, without storing it
    struct CaptureDisposition {
        int output = 1;
        QString labelIndex;
    };
    void dispatchCapture(const QString &path, const QString &folder, const QString &plainName,
                         const CaptureDisposition &disposition, int exitCode);
    void finishIfIdle();
    void startLinger();
    void uploadFinished(bool ok, const QString &productLink);

    PanelControllerDelegate *m_delegate = nullptr;
    QPointer<Panel> m_window;
    std::unique_ptr<Ui::Panel> m_ui;
    bool m_hasActivePanel = false;
    QTimer *m_pollTimer = nullptr;
    QTimer *m_lingerTimer = nullptr;
    bool m_uploadInFlight = false;
    QElapsedTimer m_focusLossClose;
};
