#include "RWColorWell.h"

#include "LabelSwatches.h"
#include "RWColorPickerView.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {
constexpr qreal kDot = 10.0;
}

RWColorWell::RWColorWell(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TranslucentBackground, false);
    setCursor(Qt::PointingHandCursor);
}

RWColorWell::~RWColorWell() = default;

void RWColorWell::setColor(const QColor &color)
{
    m_color = color;
    update();
}

void RWColorWell::setColorAndClose(const QColor &color)
{
    setColor(color);
    if (m_picker)
        m_picker->close();
    emit colorChosen(color);
}

bool RWColorWell::isPickerOpen() const
{
    return m_picker && m_picker->isVisible();
}

QRectF RWColorWell::dotRect() const
{
    // 4 px from the left edge, centred vertically.
    return QRectF(4.0, std::max<qreal>(1.0, (height() - kDot) / 2.0), kDot, kDot);
}

QSize RWColorWell::sizeHint() const
{
    return QSize(18, 14);
}

void RWColorWell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF dot = dotRect();
    QColor fill = m_color;
    if (!isEnabled())
        fill = QColor::fromRgbF(0.9f, 0.9f, 0.9f, 1.0f);
    painter.setBrush(fill.alpha() == 0 ? QBrush(Qt::NoBrush) : QBrush(fill));
    painter.setPen(QPen(Qt::black, 0.5));
    painter.drawEllipse(dot);
}

void RWColorWell::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (!isEnabled() || event->button() != Qt::LeftButton)
        return;
    if (isPickerOpen())
        m_picker->close();
    else
        openPicker();
}

void RWColorWell::openPicker()
{
    if (!m_picker)
        m_picker = new RWColorPickerView(this);
    const QRect wellGlobal(mapToGlobal(QPoint(0, 0)), size());
    QScreen *onScreen = screen();
    const QRect area = onScreen ? onScreen->availableGeometry() : wellGlobal;
    m_picker->move(LabelSwatches::pickerPosition(wellGlobal, m_picker->size(), area));
    m_picker->show();
}
