#include "HoverButton.h"

#include "Artwork.h"
#include "Settings.h"
#include "Theme.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr qreal kDimmed = 0.65;
constexpr qreal kFull = 100.0;  // taken as fully opaque

// Hover reactions only while the pointer is over the active window.
bool hoverLive(const QWidget *widget)
{
    return widget->window()->isActiveWindow();
}

void paintGlyph(QPainter &painter, const QRectF &box, const QPixmap &glyph)
{
    const QSizeF size = glyph.deviceIndependentSize();
    painter.drawPixmap(QPointF(box.center().x() - size.width() / 2, box.center().y() - size.height() / 2),
                       glyph);
}

}  // namespace

// ---- HoverButton

HoverButton::HoverButton(QWidget *parent) : QPushButton(parent) {}

void HoverButton::setAlphaValue(qreal alpha)
{
    m_alpha = std::clamp<qreal>(alpha, 0.0, 1.0);
    update();
}

void HoverButton::setGlyphName(const QString &name)
{
    m_glyphName = name;
    update();
}

QSize HoverButton::sizeHint() const
{
    return isFlat() ? QSize(18, 18) : QSize(120, 32);
}

void HoverButton::enterEvent(QEnterEvent *event)
{
    QPushButton::enterEvent(event);
    if (hoverLive(this))
        setAlphaValue(kFull);
}

void HoverButton::leaveEvent(QEvent *event)
{
    QPushButton::leaveEvent(event);
    if (hoverLive(this))
        setAlphaValue(kDimmed);
}

void HoverButton::paintEvent(QPaintEvent *)
{
    if (m_alpha <= 0.0)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(isEnabled() ? m_alpha : m_alpha * 0.5);
    const qreal dpr = devicePixelRatioF();
    const QRectF box = rect();

    if (isFlat()) {
        const QSize glyphSize = iconSize().boundedTo(size());
        QPixmap glyph = !m_glyphName.isEmpty() ? Artwork::image(m_glyphName, glyphSize, dpr)
                                               : icon().pixmap(glyphSize, dpr);
        if (!glyph.isNull())
            paintGlyph(painter, box, glyph);
        return;
    }

    Artwork::drawPlate(painter, box, QStringLiteral("shoot"));
    if (isDown())
        painter.fillRect(box.adjusted(1, 1, -1, -1), QColor(0, 0, 0, 18));
    const QColor ink = Theme::myCol(1, 1, 1, 1);
    QFont font = this->font();
    font.setBold(true);
    painter.setFont(font);
    const QString title = text();
    const int textWidth = painter.fontMetrics().horizontalAdvance(title);
    const int glyphSide = 18;
    const QString glyphName = m_glyphName.isEmpty() ? QStringLiteral("camera") : m_glyphName;
    const QPixmap glyph = Artwork::tinted(glyphName, QSize(glyphSide, glyphSide), dpr, ink);
    const int gap = title.isEmpty() ? 0 : 6;
    const qreal left = box.center().x() - (glyphSide + gap + textWidth) / 2.0;
    paintGlyph(painter, QRectF(left, box.top(), glyphSide, box.height()), glyph);
    painter.setPen(ink);
    painter.drawText(QRectF(left + glyphSide + gap, box.top(), textWidth + 2, box.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, title);
}

// ---- HoverButtonX

HoverButtonX::HoverButtonX(QWidget *parent) : HoverButton(parent)
{
    setFlat(true);
    setGlyphName(QStringLiteral("clear"));
    setIconSize(QSize(14, 14));
}

void HoverButtonX::enterEvent(QEnterEvent *event)
{
    if (alphaValue() == 0.0) {
        QPushButton::enterEvent(event);
        return;
    }
    HoverButton::enterEvent(event);
}

void HoverButtonX::leaveEvent(QEvent *event)
{
    if (alphaValue() == 0.0) {
        QPushButton::leaveEvent(event);
        return;
    }
    HoverButton::leaveEvent(event);
}

// ---- HoverButtonEdit

HoverButtonEdit::HoverButtonEdit(QWidget *parent) : QPushButton(parent)
{
    setFlat(true);
}

void HoverButtonEdit::setImageName(const QString &name)
{
    m_imageName = name;
    update();
}

void HoverButtonEdit::enterEvent(QEnterEvent *event)
{
    QPushButton::enterEvent(event);
    if (hoverLive(this) && Settings::boolValue(Key::ToggleEdit))
        setImageName(QStringLiteral("edit"));
}

void HoverButtonEdit::leaveEvent(QEvent *event)
{
    QPushButton::leaveEvent(event);
    if (hoverLive(this))
        setImageName(QStringLiteral("edit_off"));
}

void HoverButtonEdit::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QPixmap glyph = Artwork::image(m_imageName, QSize(16, 16).boundedTo(size()), devicePixelRatioF());
    if (!glyph.isNull())
        paintGlyph(painter, rect(), glyph);
}

// ---- HoverButtonMatrix

namespace {
bool isChosenPlate(const QString &name)
{
    return name == QLatin1String("butt2") || name == QLatin1String("butt3");
}
}  // namespace

HoverButtonMatrix::HoverButtonMatrix(QWidget *parent)
    : QPushButton(parent), m_titleColor(Theme::midGrey())
{
}

void HoverButtonMatrix::setImageName(const QString &name)
{
    if (m_imageName == name)
        return;
    m_imageName = name;
    update();
}

void HoverButtonMatrix::setGlyphName(const QString &name)
{
    m_glyphName = name;
    update();
}

void HoverButtonMatrix::setTitleColor(const QColor &colour)
{
    m_titleColor = colour;
    update();
}

QSize HoverButtonMatrix::sizeHint() const
{
    return QSize(80, 52);
}

void HoverButtonMatrix::enterEvent(QEnterEvent *event)
{
    QPushButton::enterEvent(event);
    if (hoverLive(this) && !isChosenPlate(m_imageName))
        setImageName(QStringLiteral("butt1"));
}

void HoverButtonMatrix::leaveEvent(QEvent *event)
{
    QPushButton::leaveEvent(event);
    if (hoverLive(this) && !isChosenPlate(m_imageName))
        setImageName(QStringLiteral("butt0"));
}

void HoverButtonMatrix::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!isEnabled())
        painter.setOpacity(0.5);
    const QRectF box = rect();
    Artwork::drawPlate(painter, box, m_imageName.isEmpty() ? QStringLiteral("butt0") : m_imageName);
    if (isDown())
        painter.fillRect(box.adjusted(1, 1, -1, -1), QColor(0, 0, 0, 12));

    const qreal dpr = devicePixelRatioF();
    const QSize glyphSize(20, 20);
    QPixmap glyph;
    if (!m_glyphName.isEmpty())
        glyph = Artwork::tinted(m_glyphName, glyphSize, dpr, m_titleColor);
    else if (!icon().isNull())
        glyph = icon().pixmap(glyphSize, dpr);

    const int lineHeight = fontMetrics().height();
    const qreal gap = 3;
    const qreal contentHeight = glyph.isNull() ? lineHeight : glyphSize.height() + gap + lineHeight;
    const qreal top = box.center().y() - contentHeight / 2;
    if (!glyph.isNull())
        paintGlyph(painter, QRectF(box.left(), top, box.width(), glyphSize.height()), glyph);
    painter.setPen(m_titleColor);
    painter.setFont(font());
    const qreal textTop = glyph.isNull() ? top : top + glyphSize.height() + gap;
    painter.drawText(QRectF(box.left() + 2, textTop, box.width() - 4, lineHeight),
                     Qt::AlignHCenter | Qt::AlignVCenter, text());
}
