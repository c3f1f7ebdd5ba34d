#pragma once
// A fast PNG writer for screenshots: RGB (or RGBA for images with alpha), each row filtered
// with None, Sub or Up (whichever leaves the smallest residuals), the rows split into bands
// that are filtered and deflated on separate threads and joined into one zlib stream.

#include <QByteArray>
#include <QImage>

namespace PngEncoder {

struct Options
{
    int level = 6;   // libdeflate level of the last band; the zlib bands use at most 3
    int bands = 2;   // parallel bands (threads)
};

// An empty array when the image is null or memory runs out.
QByteArray encode(const QImage &image, const Options &options = {});

} // namespace PngEncoder
