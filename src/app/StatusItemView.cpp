#include "StatusItemView.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QSystemTrayIcon>

StatusItemView::StatusItemView(QObject *parent)
    : QObject(parent), m_statusItem(new QSystemTrayIcon(this))
{
    m_statusItem->setToolTip(QStringLiteral("Quillo"));
    connect(m_statusItem, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason != QSystemTrayIcon::Trigger)
                    return;
                m_lastClick = QCursor::pos();
                if (m_action)
                    m_action();
            });
}

StatusItemView::~StatusItemView()
{
    m_statusItem->hide();
}

void StatusItemView::setHighlighted(bool highlighted)
{
    if (m_highlighted == highlighted)
        return;
    m_highlighted = highlighted;
    redraw();
}

void StatusItemView::setImage(const QIcon &image)
{
    if (image.cacheKey() == m_image.cacheKey())
        return;
    m_image = image;
    redraw();
}

void StatusItemView::setAlternateImage(const QIcon &image)
{
    if (image.cacheKey() == m_alternateImage.cacheKey())
        return;
    m_alternateImage = image;
    if (m_highlighted)
        redraw();
}

void StatusItemView::redraw()
{
    m_statusItem->setIcon(m_highlighted ? m_alternateImage : m_image);
    ++m_redraws;
}

QRect StatusItemView::globalRect() const
{
    const QRect geometry = m_statusItem->geometry();
    if (geometry.isValid() && !geometry.isEmpty() && geometry.topLeft() != QPoint(0, 0))
        return geometry;
    const QPoint at = m_lastClick.x() >= 0 ? m_lastClick : QCursor::pos();
    return QRect(at, QSize(1, 1));
}

QScreen *StatusItemView::screen() const
{
    QScreen *screen = QGuiApplication::screenAt(globalRect().center());
    return screen ? screen : QGuiApplication::primaryScreen();
}
