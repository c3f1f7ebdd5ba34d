#pragma once
// The colour label picker's model and geometry, without widgets: one row of eight
// 15x15 swatches with 1 px between them (none outside), inside a white frame.
// Column order: no label, red, orange, yellow, green, blue, purple, grey.

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

namespace LabelSwatches {

inline constexpr int kColumns = 8;
inline constexpr int kSwatchSide = 15;
inline constexpr int kSpacing = 1;
inline constexpr int kMargin = 4;  // white frame around the 1 px border of the swatch row

// Swatch colour of a column; column 0 (no label) is transparent. Invalid outside 0..7.
QColor colour(int column);
// The file label index that choosing the column records ("0" for none and for any other column).
QString finderLabelIndex(int column);

// The picker's size and its swatches' rectangles in picker coordinates.
QSize pickerSize();
QRect swatchRect(int column);
// The column whose swatch holds the point, or -1 (gaps, border, frame).
int columnAt(const QPoint &point);

// Where the picker goes for a well at wellGlobal: centred under it, or above it when there
// is no room below, and always inside screenArea.
QPoint pickerPosition(const QRect &wellGlobal, const QSize &picker, const QRect &screenArea);

}  // namespace LabelSwatches
