#include "FakeBackend.h"

QImage FakeBackend::gradient()
{
    QImage image(320, 200, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb(x * 255 / 319, y * 255 / 199, 128);
    }
    return image;
}

QImage FakeBackend::grab(const QRect &area)
{
    return gradient().copy(area);
}
