#include "Encoders.h"
#include "PngEncoder.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>

#include <turbojpeg.h>

#include <memory>
#include <thread>

namespace {

bool writeAll(QIODevice *out, const char *data, qint64 size, QString *error)
{
    if (out->write(data, size) == size)
        return true;
    *error = QStringLiteral("cannot write the file: %1").arg(out->errorString());
    return false;
}

bool encodeJpeg(const QImage &source, QIODevice *out, QString *error)
{
    const QImage image = source.convertToFormat(QImage::Format_RGB32); // no-op for a grab
    std::unique_ptr<void, decltype(&tjDestroy)> compressor(tjInitCompress(), &tjDestroy);
    unsigned char *jpeg = nullptr;
    unsigned long size = 0;
    if (!compressor
        || tjCompress2(compressor.get(), image.constBits(), image.width(), int(image.bytesPerLine()),
                       image.height(), TJPF_BGRX, &jpeg, &size, TJSAMP_420, 90, 0) != 0) {
        *error = QStringLiteral("JPEG encoding failed: %1").arg(QString::fromUtf8(tjGetErrorStr2(compressor.get())));
        tjFree(jpeg);
        return false;
    }
    std::unique_ptr<unsigned char, decltype(&tjFree)> owned(jpeg, &tjFree);
    return writeAll(out, reinterpret_cast<const char *>(jpeg), qint64(size), error);
}

bool encodePng(const QImage &image, QIODevice *out, QString *error)
{
    PngEncoder::Options options;
    options.bands = int(qBound(1u, std::thread::hardware_concurrency(), 4u));
    const QByteArray png = PngEncoder::encode(image, options);
    if (png.isEmpty()) {
        *error = QStringLiteral("PNG encoding failed (out of memory?)");
        return false;
    }
    return writeAll(out, png.constData(), png.size(), error);
}

bool encodeWithQt(const QImage &image, const char *format, QIODevice *out, QString *error)
{
    QImageWriter writer(out, format);
    // An X server leaves the unused byte of a pixel undefined: hand Qt opaque pixels.
    if (writer.write(image.hasAlphaChannel() ? image : image.convertToFormat(QImage::Format_RGB888)))
        return true;
    *error = QStringLiteral("%1 encoding failed: %2").arg(QString::fromLatin1(format).toUpper(), writer.errorString());
    return false;
}

bool encodePdf(const QImage &image, QIODevice *out, QString *error)
{
    // QPdfWriter needs a QGuiApplication; a headless one is enough for a page with one image.
    std::unique_ptr<QGuiApplication> app;
    if (!QGuiApplication::instance()) {
        static int argc = 1;
        static char name[] = "quillo-screencapture";
        static char *argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(96); // one image pixel per PDF pixel at the usual screen density
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        pdf.setPageSize(QPageSize(QSizeF(image.width() * 72.0 / 96.0, image.height() * 72.0 / 96.0),
                                  QPageSize::Point, QString(), QPageSize::ExactMatch));
        QPainter painter;
        if (!painter.begin(&pdf)) {
            *error = QStringLiteral("PDF encoding failed");
            return false;
        }
        painter.drawImage(QRect(0, 0, pdf.width(), pdf.height()), image);
        painter.end();
    }
    return writeAll(out, buffer.data().constData(), buffer.data().size(), error);
}

} // namespace

QString Encoders::canonicalType(const QString &type)
{
    const QString t = type.toLower();
    if (t == QLatin1String("jpg") || t == QLatin1String("jpeg"))
        return QStringLiteral("jpg");
    if (t == QLatin1String("tif") || t == QLatin1String("tiff"))
        return QStringLiteral("tiff");
    for (const char *known : {"png", "bmp", "webp", "pdf"}) {
        if (t == QLatin1String(known))
            return t;
    }
    return {};
}

bool Encoders::keepsAlpha(const QString &type)
{
    return type == QLatin1String("png") || type == QLatin1String("tiff") || type == QLatin1String("webp");
}

bool Encoders::encode(const QImage &image, const QString &type, QIODevice *out, QString *error)
{
    if (type == QLatin1String("jpg"))
        return encodeJpeg(image, out, error);
    if (type == QLatin1String("png"))
        return encodePng(image, out, error);
    if (type == QLatin1String("pdf"))
        return encodePdf(image, out, error);
    if (type == QLatin1String("tiff") || type == QLatin1String("bmp") || type == QLatin1String("webp"))
        return encodeWithQt(image, type.toLatin1().constData(), out, error);
    *error = QStringLiteral("unknown image type: %1").arg(type);
    return false;
}
