#include "WindowShadow.h"

#include <QPainter>

#include <vector>

namespace {

// One horizontal then one vertical box blur of an 8-bit alpha plane, run three times:
// close to a Gaussian at a fraction of its cost.
void boxBlur(std::vector<int> &plane, int width, int height, int radius)
{
    if (radius < 1)
        return;
    std::vector<int> line(size_t(qMax(width, height)));
    const int window = 2 * radius + 1;
    auto pass = [&](int count, int length, auto at) {
        for (int i = 0; i < count; ++i) {
            int sum = 0;
            for (int k = -radius; k <= radius; ++k)
                sum += at(i, qBound(0, k, length - 1));
            for (int j = 0; j < length; ++j) {
                line[size_t(j)] = sum / window;
                sum += at(i, qMin(j + radius + 1, length - 1)) - at(i, qMax(j - radius, 0));
            }
            for (int j = 0; j < length; ++j)
                at(i, j) = line[size_t(j)];
        }
    };
    for (int round = 0; round < 3; ++round) {
        pass(height, width, [&](int y, int x) -> int & { return plane[size_t(y) * width + x]; });
        pass(width, height, [&](int x, int y) -> int & { return plane[size_t(y) * width + x]; });
    }
}

} // namespace

QImage WindowShadow::addShadow(const QImage &window, qreal scale)
{
    if (window.isNull())
        return window;
    scale = qBound<qreal>(1.0, scale, 4.0);
    const int boxRadius = qRound(7 * scale);
    const int offsetY = qRound(10 * scale);
    const int margin = 3 * boxRadius; // three box passes spread the edge that far
    const QSize size(window.width() + 2 * margin, window.height() + 2 * margin + offsetY);

    std::vector<int> alpha(size_t(size.width()) * size.height(), 0);
    const int shadowOpacity = 130;
    for (int y = 0; y < window.height(); ++y) {
        int *row = alpha.data() + size_t(margin + offsetY + y) * size.width() + margin;
        std::fill(row, row + window.width(), shadowOpacity);
    }
    boxBlur(alpha, size.width(), size.height(), boxRadius);

    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = qPremultiply(qRgba(0, 0, 0, alpha[size_t(y) * size.width() + x]));
    }
    QPainter painter(&result);
    // Converting sets the alpha of an RGB32 grab, whose unused byte the X server may leave at 0.
    painter.drawImage(margin, margin, window.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    painter.end();
    return result.convertToFormat(QImage::Format_ARGB32);
}

QImage WindowShadow::flatten(const QImage &image, const QColor &background)
{
    if (!image.hasAlphaChannel())
        return image;
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(background);
    QPainter painter(&result);
    painter.drawImage(0, 0, image);
    painter.end();
    return result;
}
