#include "Artwork.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>
#include <memory>

namespace {

constexpr int kPlateCorner = 10;   // corner slice of plates, in device-independent pixels
constexpr int kMaxCachedImages = 512;

QSvgRenderer *renderer(const QString &name)
{
    static QHash<QString, std::shared_ptr<QSvgRenderer>> renderers;
    auto it = renderers.find(name);
    if (it == renderers.end()) {
        auto svg = std::make_shared<QSvgRenderer>(Artwork::path(name));
        it = renderers.insert(name, svg->isValid() ? svg : nullptr);
    }
    return it->get();
}

QHash<QString, QPixmap> &imageCache()
{
    static QHash<QString, QPixmap> cache;
    if (cache.size() > kMaxCachedImages)
        cache.clear();
    return cache;
}

QString cacheKey(const QString &name, const QSize &size, qreal dpr, const QColor &tint)
{
    return QStringLiteral("%1|%2x%3|%4|%5")
        .arg(name)
        .arg(size.width())
        .arg(size.height())
        .arg(dpr)
        .arg(tint.isValid() ? tint.name(QColor::HexArgb) : QString());
}

QPixmap render(const QString &name, QSize size, qreal dpr, const QColor &tint)
{
    QSvgRenderer *svg = renderer(name);
    if (!svg)
        return {};
    if (size.isEmpty())
        size = svg->defaultSize();
    if (dpr <= 0)
        dpr = 1.0;
    const QString key = cacheKey(name, size, dpr, tint);
    QHash<QString, QPixmap> &cache = imageCache();
    if (auto it = cache.constFind(key); it != cache.constEnd())
        return *it;

    QImage canvas((QSizeF(size) * dpr).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (canvas.isNull())
        return {};
    canvas.fill(Qt::transparent);
    {
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        svg->render(&painter, QRectF(QPointF(0, 0), QSizeF(canvas.size())));
        if (tint.isValid()) {
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(canvas.rect(), tint);
        }
    }
    QPixmap pixmap = QPixmap::fromImage(canvas);
    pixmap.setDevicePixelRatio(dpr);
    cache.insert(key, pixmap);
    return pixmap;
}

}  // namespace

namespace Artwork {

QString path(const QString &name)
{
    return QStringLiteral(":/icons/") + name;
}

bool exists(const QString &name)
{
    return !name.isEmpty() && QFile::exists(path(name));
}

QStringList names()
{
    return QDir(QStringLiteral(":/icons")).entryList(QDir::Files, QDir::Name);
}

QSize naturalSize(const QString &name)
{
    QSvgRenderer *svg = renderer(name);
    return svg ? svg->defaultSize() : QSize();
}

QPixmap image(const QString &name, const QSize &size, qreal dpr)
{
    return render(name, size, dpr, QColor());
}

QPixmap tinted(const QString &name, const QSize &size, qreal dpr, const QColor &colour)
{
    return render(name, size, dpr, colour);
}

QIcon icon(const QString &name)
{
    static QHash<QString, QIcon> icons;
    auto it = icons.find(name);
    if (it == icons.end())
        it = icons.insert(name, exists(name) ? QIcon(path(name)) : QIcon());
    return *it;
}

void drawPlate(QPainter &painter, const QRectF &target, const QString &name)
{
    const qreal dpr = painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
    const QPixmap plate = image(name, QSize(), dpr);
    if (plate.isNull() || target.isEmpty())
        return;
    const QSizeF natural = plate.deviceIndependentSize();
    const qreal c = std::min<qreal>({qreal(kPlateCorner), target.width() / 2, target.height() / 2,
                                     natural.width() / 2, natural.height() / 2});
    // Source and target edges of the three columns and rows.
    const qreal sx[] = {0, c, natural.width() - c, natural.width()};
    const qreal sy[] = {0, c, natural.height() - c, natural.height()};
    const qreal tx[] = {target.left(), target.left() + c, target.right() - c, target.right()};
    const qreal ty[] = {target.top(), target.top() + c, target.bottom() - c, target.bottom()};
    const qreal scale = plate.devicePixelRatio();
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 3; ++col) {
            const QRectF source(sx[col] * scale, sy[row] * scale, (sx[col + 1] - sx[col]) * scale,
                                (sy[row + 1] - sy[row]) * scale);
            const QRectF dest(tx[col], ty[row], tx[col + 1] - tx[col], ty[row + 1] - ty[row]);
            if (!source.isEmpty() && !dest.isEmpty())
                painter.drawPixmap(dest, plate, source);
        }
}

}  // namespace Artwork
