#include "BackgroundView.h"

#include <QPainter>
#include <QRegion>

namespace {
constexpr qreal kRadius = 10.0;
}  // namespace

BackgroundView::BackgroundView(QColor fill, QWidget *parent) : QWidget(parent), m_fill(fill)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void BackgroundView::setOpensUpward(bool upward)
{
    if (m_upward == upward)
        return;
    m_upward = upward;
    updateMask();
    update();
}

QPainterPath BackgroundView::shape(const QSize &size, bool upward)
{
    QPainterPath path;
    const QRectF rect(0, upward ? kRaise : -kRaise, size.width(), size.height());
    path.addRoundedRect(rect, kRadius, kRadius);
    return path;
}

void BackgroundView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape(size(), m_upward), m_fill);
}

void BackgroundView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updateMask();
}

void BackgroundView::updateMask()
{
    // No compositor is needed: the window itself takes the rounded shape.
    if (QWidget *top = window(); top && top != this)
        top->setMask(QRegion(shape(size(), m_upward).toFillPolygon().toPolygon()));
}
