#include "TXProgressBar.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

TXProgressBar::TXProgressBar(QWidget *parent) : QProgressBar(parent)
{
    setTextVisible(false);
    m_animator.setInterval(1000 / 30);
    connect(&m_animator, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

TXProgressBar::~TXProgressBar()
{
    m_progressOffset = 0.0;
    m_animator.stop();
}

void TXProgressBar::setDoubleValue(double value)
{
    m_value = value;
    if (std::isfinite(value))
        setValue(int(std::lround(std::clamp(value, double(minimum()), double(maximum())))));
    update();
    updateTimer();
}

void TXProgressBar::startAnimation()
{
    m_animating = true;
    updateTimer();
}

void TXProgressBar::stopAnimation()
{
    m_animating = false;
    updateTimer();
}

void TXProgressBar::updateTimer()
{
    const bool run = m_animating && isVisible() && !(m_value >= maximum());
    if (run && !m_animator.isActive())
        m_animator.start();
    else if (!run)
        m_animator.stop();
}

QRectF TXProgressBar::stripRect() const
{
    if (m_value == 0.0 || !std::isfinite(m_value))
        return {};
    const float range = float(maximum() - minimum());
    if (range == 0.0f)
        return {};
    const float fraction = float(m_value / range);
    if (fraction == 0.0f)
        return {};
    return QRectF(0.0, 0.0, double(fraction) * width(), 2.0);
}

void TXProgressBar::paintEvent(QPaintEvent *)
{
    m_progressOffset += 1.0;
    const QRectF strip = stripRect().normalized();
    if (strip.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath path;
    path.addRoundedRect(strip, 2.0, 2.0);
    painter.fillPath(path, barColour());
}

void TXProgressBar::showEvent(QShowEvent *event)
{
    QProgressBar::showEvent(event);
    updateTimer();
}

void TXProgressBar::hideEvent(QHideEvent *event)
{
    QProgressBar::hideEvent(event);
    updateTimer();
}
