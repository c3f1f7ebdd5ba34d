#include "UploadPanel.h"

#include "NotificationCenter.h"
#include "PanelPlacement.h"
#include "TXProgressBar.h"
#include "Texts.h"
#include "UploadProgress.h"
#include "UploadView.h"
#include "UploadWindow.h"
#include "ui_Upload.h"

#include <QCursor>
#include <QGuiApplication>
#include <QLabel>
#include <QPropertyAnimation>
#include <QScreen>
#include <cmath>

namespace {

const QColor kDimWhite = QColor::fromRgbF(0.706f, 0.706f, 0.706f, 1.0f);

void setText(QLabel *label, const QString &text, const QColor &colour)
{
    label->setText(text);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
}

}  // namespace

UploadPanel::UploadPanel(IconRect iconRect, QObject *parent)
    : QObject(parent), m_iconRect(std::move(iconRect)), m_ui(std::make_unique<Ui::Upload>())
{
    m_window = new UploadWindow;
    m_ui->setupUi(m_window);
    m_window->setFixedHeight(kHeight);
    setText(m_ui->uploadLabel, Texts::UploadingQuillo, kDimWhite);
    connect(m_window, &UploadWindow::closeRequested, this, [this] { setHasActivePanel(false); });

    NotificationCenter &center = NotificationCenter::defaultCenter();
    for (const QString &name : {Notifications::UploadSucceeded, Notifications::UploadBegins, Notifications::UploadFailed})
        center.addObserver(name, this, [this](const QString &n) { receiveTestNotification(n); });
    center.addObserver(Notifications::UploadProgress, this, [this](const QString &) { receiveTestNotification4(); });
}

UploadPanel::~UploadPanel()
{
    NotificationCenter::defaultCenter().removeObserver(this);
    delete m_window;
}

void UploadPanel::setHasActivePanel(bool active)
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

QRect UploadPanel::statusRectForWindow() const
{
    const QRect icon = m_iconRect ? m_iconRect() : QRect();
    if (icon.isValid() && !icon.isEmpty())
        return icon;
    return QRect(QCursor::pos(), QSize(1, 1));
}

bool UploadPanel::opensUpward() const { return m_ui->backgroundView->opensUpward(); }

void UploadPanel::setFlipped(bool upward)
{
    UploadView *view = m_ui->backgroundView;
    if (view->opensUpward() == upward)
        return;
    // The content moves away from the clear strip, which changes sides.
    const int shift = upward ? int(UploadView::kRaise) : -int(UploadView::kRaise);
    for (QWidget *child : view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        child->move(child->pos() + QPoint(0, shift));
    view->setOpensUpward(upward);
}

void UploadPanel::openPanel()
{
    const QRect icon = statusRectForWindow();
    QScreen *screen = QGuiApplication::screenAt(icon.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QSize size(kWidth, m_window->height());
    bool upward = false;
    const QRect frame = PanelPlacement::place(icon, size, screen ? screen->availableGeometry() : QRect(), &upward);
    setFlipped(upward);
    m_window->setFixedSize(size);
    m_ui->backgroundView->setGeometry(QRect(QPoint(0, 0), size));
    m_window->setMask(QRegion(m_ui->backgroundView->shape().toFillPolygon().toPolygon()));
    m_window->move(frame.topLeft());
    m_window->setWindowOpacity(0.0);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    fade(1.0, [] { NotificationCenter::defaultCenter().post(Notifications::UploadStarted); });
}

void UploadPanel::closePanel()
{
    fade(0.0, [this] {
        m_window->hide();
        NotificationCenter::defaultCenter().post(Notifications::UploadEnded);
    });
}

void UploadPanel::fade(double to, std::function<void()> done)
{
    if (m_fade)
        m_fade->stop();  // a fade in the other direction gives way
    auto *animation = new QPropertyAnimation(m_window, "windowOpacity", this);
    animation->setDuration(kFadeMilliseconds);
    animation->setStartValue(m_window->windowOpacity());
    animation->setEndValue(to);
    connect(animation, &QPropertyAnimation::finished, this, std::move(done));
    m_fade = animation;
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void UploadPanel::receiveTestNotification(const QString &name)
{
    if (name == Notifications::UploadSucceeded) {
        setText(m_ui->copiedLabel, Texts::URLCopied, Qt::white);
        m_ui->copiedLabel->show();
        m_ui->uploadLabel->hide();
        m_ui->progressIndicator->hide();
        m_ui->progressBounds->hide();
    }
    if (name == Notifications::UploadBegins) {
        setText(m_ui->uploadLabel, Texts::UploadingQuillo, kDimWhite);
        m_ui->copiedLabel->hide();
        m_ui->progressIndicator->show();
        m_ui->progressBounds->show();
        m_ui->uploadLabel->show();
        m_ui->progressIndicator->setDoubleValue(0.0);
        m_ui->progressIndicator->startAnimation();
    }
    if (name == Notifications::UploadFailed) {
        setText(m_ui->copiedLabel, Texts::ErrorUploading, kDimWhite);
        m_ui->copiedLabel->show();
        m_ui->progressIndicator->hide();
        m_ui->progressBounds->hide();
        m_ui->uploadLabel->hide();
    }
    if (name != Notifications::UploadBegins)
        m_ui->progressIndicator->stopAnimation();
}

void UploadPanel::receiveTestNotification4()
{
    const double percent = uploadPercent().load();
    m_ui->progressIndicator->setDoubleValue(percent > 1.0 ? percent : 0.0);
}

QWidget *UploadPanel::window() const { return m_window; }
UploadView *UploadPanel::backgroundView() const { return m_ui->backgroundView; }
QLabel *UploadPanel::uploadLabel() const { return m_ui->uploadLabel; }
QLabel *UploadPanel::copiedLabel() const { return m_ui->copiedLabel; }
TXProgressBar *UploadPanel::progressIndicator() const { return m_ui->progressIndicator; }
QWidget *UploadPanel::progressBounds() const { return m_ui->progressBounds; }
