#pragma once
// The soft drop shadow a window capture gets unless -o is given.

#include <QColor>
#include <QImage>

namespace WindowShadow {

// The window on a transparent margin with a blurred shadow below it. scale is the
// desktop's UI scale (1 at 96 dpi); margins and blur grow with it.
QImage addShadow(const QImage &window, qreal scale);

// The image over an opaque background, for types without transparency.
QImage flatten(const QImage &image, const QColor &background = Qt::white);

} // namespace WindowShadow
