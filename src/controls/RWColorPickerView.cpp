#include "RWColorPickerView.h"

#include "LabelSwatches.h"
#include "LiveSettings.h"
#include "RWColorWell.h"

#include <QMouseEvent>
#include <QPainter>

RWColorPickerView::RWColorPickerView(RWColorWell *targetColorWell)
    : QWidget(targetColorWell, Qt::Popup | Qt::FramelessWindowHint), m_target(targetColorWell)
{
    setAttribute(Qt::WA_DeleteOnClose, false);
    setFixedSize(LabelSwatches::pickerSize());
    setMouseTracking(false);
}

void RWColorPickerView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QColor(0, 0, 0, 40));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    for (int column = 0; column < LabelSwatches::kColumns; ++column) {
        const QRect swatch = LabelSwatches::swatchRect(column);
        const QColor colour = LabelSwatches::colour(column);
        if (colour.alpha() != 0) {
            painter.fillRect(swatch, colour);
            continue;
        }
        // No label: white, a red diagonal, a grey frame.
        painter.save();
        painter.setClipRect(swatch);
        painter.fillRect(swatch, Qt::white);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::red, 1.5));
        painter.drawLine(QPointF(swatch.right() + 0.5, swatch.top() + 0.5),
                         QPointF(swatch.left() + 0.5, swatch.bottom() + 0.5));
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(Qt::gray, 1));
        painter.drawRect(swatch.adjusted(0, 0, -1, -1));
        painter.restore();
    }
}

void RWColorPickerView::mousePressEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (!rect().contains(at)) {
        // A click on the well itself closes the picker; it must not reopen it.
        if (m_target && m_target->rect().contains(m_target->mapFromGlobal(event->globalPosition().toPoint())))
            setAttribute(Qt::WA_NoMouseReplay);
        QWidget::mousePressEvent(event);  // closes a pop-up on an outside click
        return;
    }
    const int column = LabelSwatches::columnAt(at);
    if (column < 0 || !m_target)
        return;
    // The index is recorded first so that colorChosen's receivers already see it.
    LiveSettings::shared().finderLabelIndex = LabelSwatches::finderLabelIndex(column);
    m_target->setColorAndClose(LabelSwatches::colour(column));
}
