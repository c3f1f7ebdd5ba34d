#include "UploadView.h"

#include <QPainter>

UploadView::UploadView(QWidget *parent) : QWidget(parent) {}

void UploadView::setOpensUpward(bool upward)
{
    if (m_upward == upward)
        return;
    m_upward = upward;
    update();
}

QPainterPath UploadView::shape() const
{
    // The rounded rectangle is pushed 10 px past the tray-side edge, which clips its corners.
    const QRectF r = rect();
    QPainterPath rounded;
    rounded.addRoundedRect(r.translated(0, m_upward ? kRaise : -kRaise), kRadius, kRadius);
    QPainterPath bounds;
    bounds.addRect(r);
    return rounded.intersected(bounds);
}

void UploadView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.fillPath(shape(), fillColour());
}
