#include "LabelSwatches.h"

#include <algorithm>

namespace LabelSwatches {

QColor colour(int column)
{
    struct Hsb { float h, s, b; };
    static const Hsb table[] = {
        {0.05f, 1.0f, 1.0f},   // red
        {0.11f, 1.0f, 1.0f},   // orange
        {0.154f, 1.0f, 1.0f},  // yellow
        {0.345f, 1.0f, 0.9f},  // green
        {0.535f, 1.0f, 1.0f},  // blue
        {0.89f, 1.0f, 1.0f},   // purple
        {0.7f, 0.0f, 0.7f},    // grey
    };
    if (column == 0)
        return QColor(Qt::transparent);
    if (column < 1 || column >= kColumns)
        return {};
    const Hsb &c = table[column - 1];
    return QColor::fromHsvF(c.h, c.s, c.b, 1.0f);
}

QString finderLabelIndex(int column)
{
    static const char *const indices[] = {"0", "2", "1", "3", "6", "4", "5", "7"};
    if (column < 0 || column >= kColumns)
        return QStringLiteral("0");
    return QString::fromLatin1(indices[column]);
}

QSize pickerSize()
{
    const int inner = kColumns * kSwatchSide + (kColumns - 1) * kSpacing;
    return QSize(inner + 2 + 2 * kMargin, kSwatchSide + 2 + 2 * kMargin);
}

QRect swatchRect(int column)
{
    if (column < 0 || column >= kColumns)
        return {};
    return QRect(kMargin + 1 + column * (kSwatchSide + kSpacing), kMargin + 1, kSwatchSide, kSwatchSide);
}

int columnAt(const QPoint &point)
{
    for (int column = 0; column < kColumns; ++column)
        if (swatchRect(column).contains(point))
            return column;
    return -1;
}

QPoint pickerPosition(const QRect &wellGlobal, const QSize &picker, const QRect &screenArea)
{
    const int gap = 3;
    int x = wellGlobal.center().x() - picker.width() / 2;
    int y = wellGlobal.bottom() + 1 + gap;
    if (y + picker.height() > screenArea.bottom() + 1)
        y = wellGlobal.top() - gap - picker.height();
    x = std::clamp(x, screenArea.left(), std::max(screenArea.left(), screenArea.right() + 1 - picker.width()));
    y = std::clamp(y, screenArea.top(), std::max(screenArea.top(), screenArea.bottom() + 1 - picker.height()));
    return QPoint(x, y);
}

}  // namespace LabelSwatches
