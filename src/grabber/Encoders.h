#pragma once
// Image file types the grabber writes, each behind one encoder.

#include <QImage>
#include <QString>

class QIODevice;

namespace Encoders {

// The canonical type ("jpg", "png", "tiff", "bmp", "webp", "pdf") for a -t value, matched
// without regard to case ("jpeg" and "tif" are aliases); empty when the type is unknown.
QString canonicalType(const QString &type);
// Whether files of this type keep transparency.
bool keepsAlpha(const QString &type);
// Writes the image as the given canonical type; false with a one-line reason on failure.
bool encode(const QImage &image, const QString &type, QIODevice *out, QString *error);

} // namespace Encoders
