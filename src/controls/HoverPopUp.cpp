#include "HoverPopUp.h"

#include "Artwork.h"
#include "Theme.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>

namespace {

constexpr qreal kDimmed = 0.65;
constexpr qreal kPrefsDimmed = 0.75;

bool hoverLive(const QWidget *widget)
{
    return widget->window()->isActiveWindow();
}

// Rows show their own colour and font; separators are a thin line.
class PopUpItemDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static bool isSeparator(const QModelIndex &index)
    {
        return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        if (isSeparator(index)) {
            const int y = option.rect.center().y();
            painter->fillRect(QRect(option.rect.left() + 6, y, option.rect.width() - 12, 1),
                              QColor(0, 0, 0, 30));
            return;
        }
        QStyleOptionViewItem opt = option;
        initStyleOption(&opt, index);
        opt.rect.adjust(6, 0, -6, 0);
        // A hovered row is tinted with the accent; the item keeps its own text colour.
        if (opt.state & (QStyle::State_Selected | QStyle::State_MouseOver)) {
            QColor tint = Theme::accent();
            tint.setAlphaF(0.22);
            painter->fillRect(option.rect, tint);
        }
        opt.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        opt.backgroundBrush = Qt::NoBrush;
        const QVariant foreground = index.data(Qt::ForegroundRole);
        if (!foreground.isValid())
            opt.palette.setColor(QPalette::Text, Theme::darkText());
        QStyledItemDelegate::paint(painter, opt, index);
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        size.setHeight(std::max(size.height() + 6, 22));
        size.setWidth(size.width() + 12);
        return size;
    }
};

void paintAlpha(QPainter &painter, qreal alpha, bool enabled)
{
    painter.setOpacity(enabled ? alpha : alpha * 0.5);
}

}  // namespace

namespace PopUpList {

void prepare(QComboBox *popUp)
{
    if (!popUp)
        return;
    popUp->setItemDelegate(new PopUpItemDelegate(popUp));
    if (auto *list = qobject_cast<QListView *>(popUp->view()))
        list->setUniformItemSizes(true);
    QPalette palette = popUp->view()->palette();
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Window, Qt::white);
    popUp->view()->setPalette(palette);
}

void hideTitleRow(QComboBox *popUp)
{
    auto *list = popUp ? qobject_cast<QListView *>(popUp->view()) : nullptr;
    if (list && popUp->count() > 0)
        list->setRowHidden(0, true);
}

void placeUnder(QComboBox *popUp)
{
    QWidget *container = popUp ? popUp->view()->window() : nullptr;
    if (!container || container == popUp->window() || !container->isVisible())
        return;
    const QRect anchor(popUp->mapToGlobal(QPoint(0, 0)), popUp->size());
    QScreen *screen = popUp->screen();
    const QRect area = screen ? screen->availableGeometry() : anchor;
    QRect frame(QPoint(anchor.left(), anchor.bottom() + 1), container->size());
    if (frame.bottom() > area.bottom())
        frame.moveBottom(anchor.top() - 1);
    frame.moveLeft(std::clamp(frame.left(), area.left(), std::max(area.left(), area.right() - frame.width() + 1)));
    frame.moveTop(std::clamp(frame.top(), area.top(), std::max(area.top(), area.bottom() - frame.height() + 1)));
    container->move(frame.topLeft());
}

}  // namespace PopUpList

// ---- HoverPopUp

HoverPopUp::HoverPopUp(QWidget *parent) : QComboBox(parent)
{
    PopUpList::prepare(this);
}

void HoverPopUp::setAlphaValue(qreal alpha)
{
    m_alpha = std::clamp<qreal>(alpha, 0.0, 1.0);
    update();
}

QColor HoverPopUp::myCol(float red, float green, float blue, float alpha)
{
    return Theme::myCol(red, green, blue, alpha);
}

void HoverPopUp::showPopup()
{
    QComboBox::showPopup();
    PopUpList::placeUnder(this);
}

QSize HoverPopUp::sizeHint() const
{
    return QSize(70, 26);
}

void HoverPopUp::enterEvent(QEnterEvent *event)
{
    QComboBox::enterEvent(event);
    if (hoverLive(this))
        setAlphaValue(100.0);
}

void HoverPopUp::leaveEvent(QEvent *event)
{
    QComboBox::leaveEvent(event);
    if (hoverLive(this))
        setAlphaValue(kDimmed);
}

void HoverPopUp::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintAlpha(painter, m_alpha, isEnabled());

    const QRectF plate = plateRect();
    QPainterPath path;
    path.addRoundedRect(plate, 2.0, 2.0);
    path.setFillRule(Qt::OddEvenFill);
    painter.fillPath(path, myCol(0.75f, 0.75f, 0.75f, 1.0f));

    // The current item, then a small chevron at the plate's right end.
    painter.setPen(Theme::darkText());
    painter.setFont(font());
    const QRectF textBox = plate.adjusted(7, 0, -16, 0);
    painter.drawText(textBox, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, int(textBox.width())));
    const QPointF c(plate.right() - 9, plate.center().y());
    QPen chevron(Theme::darkText(), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.setPen(chevron);
    painter.drawPolyline(QPolygonF({c + QPointF(-3, -1.5), c + QPointF(0, 1.5), c + QPointF(3, -1.5)}));
}

void HoverPopUp::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

// ---- HoverPopUpPrefs

HoverPopUpPrefs::HoverPopUpPrefs(QWidget *parent) : QComboBox(parent)
{
    PopUpList::prepare(this);
}

void HoverPopUpPrefs::showPopup()
{
    PopUpList::hideTitleRow(this);
    QComboBox::showPopup();
    PopUpList::placeUnder(this);
}

QSize HoverPopUpPrefs::sizeHint() const
{
    return QSize(28, 26);
}

void HoverPopUpPrefs::enterEvent(QEnterEvent *event)
{
    QComboBox::enterEvent(event);
    if (hoverLive(this)) {
        m_alpha = kPrefsDimmed;
        update();
    }
}

void HoverPopUpPrefs::leaveEvent(QEvent *event)
{
    QComboBox::leaveEvent(event);
    if (hoverLive(this)) {
        m_alpha = 1.0;
        update();
    }
}

void HoverPopUpPrefs::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintAlpha(painter, m_alpha, isEnabled());
    const QSize side(20, 20);
    const QPixmap gear = Artwork::tinted(QStringLiteral("gear"), side, devicePixelRatioF(), Theme::midGrey());
    painter.drawPixmap(QPointF((width() - side.width()) / 2.0, (height() - side.height()) / 2.0), gear);
}

void HoverPopUpPrefs::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

// A pull-down only opens; keys never pick an item by themselves.
void HoverPopUpPrefs::keyPressEvent(QKeyEvent *event)
{
    const bool opens = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return
        || event->key() == Qt::Key_Enter || event->key() == Qt::Key_F4
        || (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier));
    if (opens)
        showPopup();
    else
        event->ignore();
}
