#include "SplashWindow.h"

#include "PanelPlacement.h"
#include "StatusItemView.h"
#include "ui_MainMenu.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

SplashWindow::SplashWindow(StatusItemView *icon)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_ui(std::make_unique<Ui::MainMenu>()), m_icon(icon)
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_ui->logo->setPixmap(QIcon(QStringLiteral(":/icons/quillo")).pixmap(64, 64));
    connect(m_ui->getStartedButton, &QPushButton::clicked, this, &SplashWindow::closeSplash);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()), 5, 5);
    setMask(QRegion(shape.toFillPolygon().toPolygon()));
}

SplashWindow::~SplashWindow() = default;

void SplashWindow::present()
{
    QScreen *screen = m_icon ? m_icon->screen() : QGuiApplication::primaryScreen();
    if (screen)
        setGeometry(PanelPlacement::centre(size(), screen->availableGeometry()));
    show();
    raise();
    activateWindow();
}

void SplashWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath path;
    path.addRoundedRect(QRectF(rect()), 5, 5);
    painter.fillPath(path, QColor::fromRgbF(0.985, 0.985, 0.985));
}
