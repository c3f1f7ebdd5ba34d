// The window side of the panel controller: loading, placing, opening, closing,
// the one-time preparation and loading the settings into the controls.
#include "PanelController.h"

#include "ApplicationHub.h"
#include "BackgroundView.h"
#include "LiveSettings.h"
#include "NotificationCenter.h"
#include "Panel.h"
#include "PanelPlacement.h"
#include "Settings.h"
#include "StatusItemView.h"
#include "Texts.h"
#include "ui_Panel.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>

namespace {

// Return shoots from any of Quillo's windows, unless a picker is up.
class ReturnKeyMonitor : public QObject
{
public:
    explicit ReturnKeyMonitor(PanelController *controller) : QObject(controller), m_controller(controller) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress && watched->isWidgetType()
            && static_cast<QWidget *>(watched)->isWindow()) {
            auto *key = static_cast<QKeyEvent *>(event);
            const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
            if (isReturn && !key->isAutoRepeat() && !LiveSettings::shared().pickerOpen)
                m_controller->shootButton();
        }
        return false;
    }

private:
    PanelController *m_controller;
};

}  // namespace

PanelController::PanelController() = default;

PanelController::PanelController(PanelControllerDelegate *delegate) : m_delegate(delegate)
{
    loadWindow();
}

PanelController::~PanelController()
{
    NotificationCenter::defaultCenter().removeObserver(this);
    if (m_window)
        delete m_window.data();
}

void PanelController::loadWindow()
{
    m_window = new Panel(QColor::fromRgbF(0.985, 0.985, 0.985));
    m_ui = std::make_unique<Ui::Panel>();
    m_ui->setupUi(m_window);
    m_window->backgroundView()->lower();
    m_window->setWindowTitle(QStringLiteral("Quillo"));
    m_window->resize(kPanelWidth, kPanelHeight);
    m_ui->shade->setAttribute(Qt::WA_TransparentForMouseEvents);
    setUpLinkList();

    const char *methodGlyphs[] = {"method-selection", "method-window", "method-screen"};
    const char *outputGlyphs[] = {"output-save", "output-upload", "output-open"};
    for (int n = 1; n <= 3; ++n) {
        methodButton(n)->setGlyphName(QLatin1String(methodGlyphs[n - 1]));
        outputButton(n)->setGlyphName(QLatin1String(outputGlyphs[n - 1]));
        methodButton(n)->setImageName(QStringLiteral("butt0"));
        outputButton(n)->setImageName(QStringLiteral("butt0"));
    }

    connect(m_window, &Panel::windowWillClose, this, [this] {
        if (m_hasActivePanel)
            m_focusLossClose.start();
        setHasActivePanel(false);
    });
    connect(m_window, &Panel::cancelOperation, this, [this] { setHasActivePanel(false); });
    connect(m_window, &Panel::windowDidResignKey, this, [this] {
        if (m_hasActivePanel && !LiveSettings::shared().pickerOpen) {
            m_focusLossClose.start();
            setHasActivePanel(false);
        }
    });

    connect(m_ui->method1button, &QPushButton::clicked, this, &PanelController::method1);
    connect(m_ui->method2button, &QPushButton::clicked, this, &PanelController::method2);
    connect(m_ui->method3button, &QPushButton::clicked, this, &PanelController::method3);
    connect(m_ui->output1button, &QPushButton::clicked, this, &PanelController::output1);
    connect(m_ui->output2button, &QPushButton::clicked, this, &PanelController::output2);
    connect(m_ui->output3button, &QPushButton::clicked, this, &PanelController::output3);
    connect(m_ui->shootButt, &QPushButton::clicked, this, &PanelController::shootButton);
    connect(m_ui->xButton, &QPushButton::clicked, this, &PanelController::xButtonAction);
    connect(m_ui->invisibleOutputButton, &QPushButton::clicked, this,
            &PanelController::invisibleOutputButtonAction);
    connect(m_ui->popUp, qOverload<int>(&QComboBox::activated), this, &PanelController::popUpAction);
    connect(m_ui->popUpPrefs, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        popUpPrefsAction(index);
        if (m_ui)
            m_ui->popUpPrefs->setCurrentIndex(0);
    });
    connect(m_ui->clipboardPopUp, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        clipboardPopUpAction(index);
        if (m_ui)
            m_ui->clipboardPopUp->setCurrentIndex(0);
    });

    // The preferences items carry their tag; the format items' tag is their index + 1.
    for (int tag = 1; tag < m_ui->popUpPrefs->count(); ++tag)
        m_ui->popUpPrefs->setItemData(tag, tag);
    for (int i = 0; i < m_ui->popUp->count(); ++i)
        m_ui->popUp->setItemData(i, i + 1);
}

void PanelController::setHasActivePanel(bool active)
{
    if (m_hasActivePanel == active)
        return;
    m_hasActivePanel = active;
    if (active)
        openPanel();
    else
        closePanel();
    emit hasActivePanelChanged(active);
}

bool PanelController::closedByFocusLossJustNow() const
{
    return m_focusLossClose.isValid() && m_focusLossClose.elapsed() < 300;
}

void PanelController::openPanel()
{
    if (!m_window)
        return;
    const QRect iconRect = statusRectForWindow(m_window);
    QScreen *screen = QGuiApplication::screenAt(iconRect.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    bool upward = false;
    const QRect frame = PanelPlacement::place(iconRect, QSize(kPanelWidth, m_window->height()),
                                              screen ? screen->availableGeometry() : QRect(), &upward);
    m_window->setOpensUpward(upward);
    m_window->setGeometry(frame);
    m_window->setWindowOpacity(1.0);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void PanelController::closePanel()
{
    if (m_window)
        m_window->hide();
}

QRect PanelController::statusRectForWindow(QWidget *)
{
    LiveSettings &live = LiveSettings::shared();
    if (!Settings::boolValue(Key::ShotFromPC) && live.outputLatch[1]) {
        buildListURLs();
        colorizeClipboardList();
        setLinkListEnabled(true);
        Settings::setValue(Key::ShotFromPC, true);
    }
    if (!live.panelInitialised)
        prepareOnce();

    StatusItemView *view = m_delegate ? m_delegate->statusItemViewForPanelController(this) : nullptr;
    return view ? view->globalRect() : QRect();
}

void PanelController::prepareOnce()
{
    LiveSettings &live = LiveSettings::shared();
    Settings::setValue(Key::ToggleEdit, true);
    userDefaults();
    colorizePrefs();
    colorizeButtons();
    colorizeButtons2();

    if (m_ui) {
        connect(m_ui->textShotName, &QLineEdit::textChanged, this, &PanelController::textNotify);
        qApp->installEventFilter(new ReturnKeyMonitor(this));
        QPalette palette = m_ui->textShotName->palette();
        palette.setColor(QPalette::Text, QColor::fromRgbF(0.4, 0.4, 0.4));
        m_ui->textShotName->setPalette(palette);
        m_ui->xButton->setAlphaValue(0.0);
        m_ui->shootButt->setAlphaValue(0.65);
        m_ui->popUp->setAlphaValue(0.65);
        m_ui->invisibleOutputButton->setImageName(QStringLiteral("edit_off"));
        m_ui->colorLabelPopper->setColor(Qt::transparent);
        refreshUploaderItems();
    }
    NotificationCenter::defaultCenter().addObserver(Notifications::URLAdded, this,
                                                    [this](const QString &) { buildListURLs(); });

    if (Settings::contains(Key::URLArray)) {
        buildListURLs();
        const int items = m_ui ? m_ui->clipboardPopUp->count() : 3 + int(Settings::stringList(Key::URLArray).size());
        if (live.outputLatch[1]) {
            const bool hasLinks = items >= 4;
            setLinkListEnabled(hasLinks);
            Settings::setValue(Key::ToggleEdit, hasLinks);
            if (hasLinks)
                setOutputLabel(Texts::AccessURLList);
        }
    }
    live.panelInitialised = true;
}

void PanelController::userDefaults()
{
    LiveSettings &live = LiveSettings::shared();

    live.loginItemEnabled = isLoginItem();
    if (live.loginItemEnabled)
        setPrefsItemTitle(4, Texts::checked(Texts::RunOnStartup));
    if (Settings::boolValue(Key::Hotkey)) {
        setPrefsItemTitle(3, Texts::checked(Texts::Hotkeys));
        live.hotkeysEnabled = true;
    }
    if (Settings::boolValue(Key::CaptureFileFormatFlag)) {
        live.captureFileFormat = Settings::stringValue(Key::CaptureFileFormat);
        live.fileFormatMenuTag = Settings::intValue(Key::CaptureFileFormatMenu);
        if (m_ui && live.fileFormatMenuTag >= 1 && live.fileFormatMenuTag <= m_ui->popUp->count())
            m_ui->popUp->setCurrentIndex(live.fileFormatMenuTag - 1);
    }
    if (Settings::boolValue(Key::CustomPath)) {
        live.customSavePath = Settings::stringValue(Key::CustomPathSaved);
        live.customPathEnabled = true;
        live.savePathLabel = Settings::stringValue(Key::CustomPathLabel);
        setPrefsItemTitle(1, Texts::checked(Texts::SetSavePath));
    }
    setOutputLabel(live.savePathLabel);
    if (Settings::boolValue(Key::CustomApp)) {
        live.customAppPath = Settings::stringValue(Key::CustomAppPath);
        live.appLabel = Settings::stringValue(Key::CustomAppTitle);
        live.customAppEnabled = true;
        setPrefsItemTitle(2, Texts::checked(Texts::SetOutputApp));
    } else {
        live.appLabel = Texts::OpensInPreview;
    }
    if (Settings::boolValue(Key::MethodShadow)) {
        setPrefsItemTitle(5, Texts::checked(Texts::GrabWindowShadows));
        live.shadowsEnabled = true;
    }

    live.methodLatch = {};
    live.outputLatch = {};
    const int method = Settings::intValue(Key::Method);
    if (method >= 1 && method <= 3)
        selectMethod(method);
    const int output = Settings::intValue(Key::Output);
    if (output >= 1 && output <= 3)
        selectOutput(output);
}

void PanelController::setPrefsItemTitle(int tag, const QString &title)
{
    if (!m_ui)
        return;
    const int index = m_ui->popUpPrefs->findData(tag);
    if (index >= 0)
        m_ui->popUpPrefs->setItemText(index, title);
}

void PanelController::setOutputLabel(const QString &text)
{
    if (m_ui)
        m_ui->outputAppLabel->setText(text);
}

void PanelController::setLinkListEnabled(bool enabled)
{
    if (m_ui)
        m_ui->clipboardPopUp->setEnabled(enabled);
}

HoverPopUp *PanelController::popUp() const { return m_ui ? m_ui->popUp : nullptr; }
VYTextField *PanelController::textShotName() const { return m_ui ? m_ui->textShotName : nullptr; }
HoverPopUpPrefs *PanelController::popUpPrefs() const { return m_ui ? m_ui->popUpPrefs : nullptr; }
QLabel *PanelController::outputAppLabel() const { return m_ui ? m_ui->outputAppLabel : nullptr; }
QComboBox *PanelController::clipboardPopUp() const { return m_ui ? m_ui->clipboardPopUp : nullptr; }
QLabel *PanelController::shade() const { return m_ui ? m_ui->shade : nullptr; }
HoverButton *PanelController::shootButt() const { return m_ui ? m_ui->shootButt : nullptr; }
HoverButtonX *PanelController::xButton() const { return m_ui ? m_ui->xButton : nullptr; }
HoverButtonEdit *PanelController::invisibleOutputButton() const { return m_ui ? m_ui->invisibleOutputButton : nullptr; }
RWColorWell *PanelController::colorLabelPopper() const { return m_ui ? m_ui->colorLabelPopper : nullptr; }

HoverButtonMatrix *PanelController::methodButton(int n) const
{
    if (!m_ui)
        return nullptr;
    HoverButtonMatrix *buttons[] = {m_ui->method1button, m_ui->method2button, m_ui->method3button};
    return n >= 1 && n <= 3 ? buttons[n - 1] : nullptr;
}

HoverButtonMatrix *PanelController::outputButton(int n) const
{
    if (!m_ui)
        return nullptr;
    HoverButtonMatrix *buttons[] = {m_ui->output1button, m_ui->output2button, m_ui->output3button};
    return n >= 1 && n <= 3 ? buttons[n - 1] : nullptr;
}
