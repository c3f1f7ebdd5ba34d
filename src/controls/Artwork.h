#pragma once
// The application's artwork: SVG images in the ":/icons" resource, looked up by name
// ("butt0", "edit_off", ...) and rendered crisply for a device pixel ratio.
// Results are cached: the same name, size and ratio give the same pixmap object
// (equal cacheKey()). GUI thread only.

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>

class QPainter;
class QRectF;

namespace Artwork {

// ":/icons/<name>".
QString path(const QString &name);
bool exists(const QString &name);
// Every image that ships, by name.
QStringList names();
// The image's own size in device-independent pixels (empty when unknown).
QSize naturalSize(const QString &name);

// The image stretched to size (device-independent pixels) at the ratio; the pixmap
// carries the ratio. An empty size means the natural size. Unknown names give a null pixmap.
QPixmap image(const QString &name, const QSize &size = QSize(), qreal dpr = 1.0);
// A single-colour glyph recoloured (its shape, filled with colour).
QPixmap tinted(const QString &name, const QSize &size, qreal dpr, const QColor &colour);
// A scalable icon of the image.
QIcon icon(const QString &name);

// Draws a plate image into target keeping its rounded corners and edges crisp
// (nine-slice: the corners stay at their natural size, the middle stretches).
void drawPlate(QPainter &painter, const QRectF &target, const QString &name);

}  // namespace Artwork
