#include "VYTextField.h"

#include "Theme.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

VYTextField::VYTextField(QWidget *parent) : QLineEdit(parent)
{
    setFrame(false);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setTextMargins(6, 0, 6, 0);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    clearBase();
}

// The box is painted here; the line edit itself draws no background.
void VYTextField::clearBase()
{
    m_settingPalette = true;
    QPalette p = palette();
    p.setColor(QPalette::Base, Qt::transparent);
    setPalette(p);
    m_settingPalette = false;
}

void VYTextField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_settingPalette
        && palette().color(QPalette::Base) != QColor(Qt::transparent))
        clearBase();
}

void VYTextField::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF outer = QRectF(rect());
        const bool ring = hasFocus() && !isReadOnly();
        QPainterPath edge;
        edge.addRoundedRect(outer, 4.0, 4.0);
        painter.fillPath(edge, ring ? Theme::accent() : QColor(0xBE, 0xC1, 0xC1));
        QPainterPath inner;
        inner.addRoundedRect(outer.adjusted(1, 1, -1, -1), 3.0, 3.0);
        painter.fillPath(inner, Qt::white);
        if (ring) {
            QColor soft = Theme::accent();
            soft.setAlphaF(0.45);
            painter.setPen(QPen(soft, 1.0));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(outer.adjusted(1.5, 1.5, -1.5, -1.5), 2.5, 2.5);
        }
    }
    QLineEdit::paintEvent(event);
}
