#include "PngEncoder.h"

#include <QtEndian>

#include <libdeflate.h>
#include <zlib.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

namespace {

enum Filter : uint8_t { None = 0, Sub = 1, Up = 2 };

// Writes one image row as RGB or RGBA bytes.
void unpackRow(const QImage &image, int y, bool alpha, uint8_t *out)
{
    const auto *in = reinterpret_cast<const QRgb *>(image.constScanLine(y));
    const int width = image.width();
    if (alpha) {
        for (int x = 0; x < width; ++x, out += 4) {
            out[0] = uint8_t(qRed(in[x]));
            out[1] = uint8_t(qGreen(in[x]));
            out[2] = uint8_t(qBlue(in[x]));
            out[3] = uint8_t(qAlpha(in[x]));
        }
    } else {
        for (int x = 0; x < width; ++x, out += 3) {
            out[0] = uint8_t(qRed(in[x]));
            out[1] = uint8_t(qGreen(in[x]));
            out[2] = uint8_t(qBlue(in[x]));
        }
    }
}

inline unsigned magnitude(uint8_t residual)
{
    const int8_t r = int8_t(residual);
    return unsigned(r < 0 ? -r : r);
}

// Filters one row into out (filter byte first): the filter with the smallest sum of
// residual magnitudes, the usual cheap predictor of what deflates best.
void filterRow(const uint8_t *row, const uint8_t *previous, size_t length, int bpp, uint8_t *out)
{
    unsigned sumNone = 0, sumSub = 0, sumUp = 0;
    for (size_t i = 0; i < size_t(bpp); ++i) {
        sumNone += magnitude(row[i]);
        sumSub += magnitude(row[i]);
    }
    // Branch-free loops that the compiler vectorizes.
    for (size_t i = bpp; i < length; ++i) {
        sumNone += magnitude(row[i]);
        sumSub += magnitude(uint8_t(row[i] - row[i - bpp]));
    }
    if (previous) {
        for (size_t i = 0; i < length; ++i)
            sumUp += magnitude(uint8_t(row[i] - previous[i]));
    } else {
        sumUp = ~0u;
    }
    uint8_t *data = out + 1;
    if (previous && sumUp <= sumSub && sumUp <= sumNone) {
        out[0] = Up;
        for (size_t i = 0; i < length; ++i)
            data[i] = uint8_t(row[i] - previous[i]);
    } else if (sumSub < sumNone) {
        out[0] = Sub;
        memcpy(data, row, size_t(bpp));
        for (size_t i = bpp; i < length; ++i)
            data[i] = uint8_t(row[i] - row[i - bpp]);
    } else {
        out[0] = None;
        memcpy(data, row, length);
    }
}

struct Band
{
    int firstRow = 0;
    int rowCount = 0;
    bool last = false;
    std::unique_ptr<uint8_t[]> compressed;
    size_t compressedLength = 0;
    uLong adler = 1;
    size_t rawLength = 0;
    bool ok = false;
};

// Filters and deflates one band of rows. A band other than the last ends with a sync flush
// (byte-aligned, not final) so that the bands join into one deflate stream.
void runBand(const QImage &image, bool alpha, int level, Band &band)
{
    const int bpp = alpha ? 4 : 3;
    const size_t rowBytes = size_t(image.width()) * bpp;
    std::vector<uint8_t> current(rowBytes), previous(rowBytes);
    // Uninitialised on purpose: zero-filling tens of megabytes costs more than filtering them.
    const size_t filteredLength = (rowBytes + 1) * size_t(band.rowCount);
    std::unique_ptr<uint8_t[]> filtered(new (std::nothrow) uint8_t[filteredLength]);
    if (!filtered)
        return;
    if (band.firstRow > 0)
        unpackRow(image, band.firstRow - 1, alpha, previous.data());
    for (int r = 0; r < band.rowCount; ++r) {
        const int y = band.firstRow + r;
        unpackRow(image, y, alpha, current.data());
        filterRow(current.data(), y > 0 ? previous.data() : nullptr, rowBytes, bpp,
                  filtered.get() + size_t(r) * (rowBytes + 1));
        current.swap(previous);
    }
    band.rawLength = filteredLength;
    band.adler = libdeflate_adler32(1, filtered.get(), filteredLength);

    if (band.last) {
        // libdeflate is much faster than zlib at the same ratio, but only writes final blocks.
        std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
            libdeflate_alloc_compressor(level), &libdeflate_free_compressor);
        if (!compressor)
            return;
        const size_t bound = libdeflate_deflate_compress_bound(compressor.get(), filteredLength);
        band.compressed.reset(new (std::nothrow) uint8_t[bound]);
        if (!band.compressed)
            return;
        band.compressedLength = libdeflate_deflate_compress(compressor.get(), filtered.get(), filteredLength,
                                                            band.compressed.get(), bound);
        band.ok = band.compressedLength > 0;
        return;
    }
    // zlib at level 3 on its smaller band keeps pace with libdeflate at 6 on the larger one,
    // at a file a few percent larger than zlib at 6.
    z_stream z{};
    if (deflateInit2(&z, qBound(1, qMin(level, 3), 9), Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return;
    const size_t bound = deflateBound(&z, uLong(filteredLength)) + 16;
    band.compressed.reset(new (std::nothrow) uint8_t[bound]);
    if (band.compressed) {
        z.next_in = filtered.get();
        z.avail_in = uInt(filteredLength);
        z.next_out = band.compressed.get();
        z.avail_out = uInt(bound);
        band.ok = deflate(&z, Z_SYNC_FLUSH) == Z_OK && z.avail_in == 0;
        band.compressedLength = z.total_out;
    }
    deflateEnd(&z);
}

void appendChunk(QByteArray &png, const char type[4], const uint8_t *data, size_t length)
{
    uchar header[8];
    qToBigEndian<quint32>(quint32(length), header);
    memcpy(header + 4, type, 4);
    png.append(reinterpret_cast<const char *>(header), 8);
    png.append(reinterpret_cast<const char *>(data), qsizetype(length));
    uLong crc = crc32_z(0, header + 4, 4);
    if (length > 0)
        crc = crc32_z(crc, data, length); // crc32_z(crc, nullptr, 0) would reset it
    uchar trailer[4];
    qToBigEndian<quint32>(quint32(crc), trailer);
    png.append(reinterpret_cast<const char *>(trailer), 4);
}

} // namespace

QByteArray PngEncoder::encode(const QImage &source, const Options &options)
{
    if (source.isNull())
        return {};
    const bool alpha = source.hasAlphaChannel();
    const QImage image = source.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.isNull())
        return {};

    const int bandCount = qBound(1, options.bands, qMax(1, image.height() / 64));
    std::vector<Band> bands(static_cast<size_t>(bandCount));
    // The last band is deflated with libdeflate, which runs about twice as fast: give it more rows.
    const int zlibShare = bandCount > 1 ? int(image.height() * 0.4 / (bandCount - 1)) : 0;
    int row = 0;
    for (int i = 0; i < bandCount; ++i) {
        bands[i].firstRow = row;
        bands[i].last = i == bandCount - 1;
        bands[i].rowCount = bands[i].last ? image.height() - row : zlibShare;
        row += bands[i].rowCount;
    }
    std::vector<std::thread> workers;
    size_t onThisThread = bands.size();  // bands from here on run here, when no thread can be had
    for (size_t i = 1; i < bands.size(); ++i) {
        try {
            workers.emplace_back(runBand, std::cref(image), alpha, options.level, std::ref(bands[i]));
        } catch (const std::system_error &) {
            onThisThread = i;
            break;
        }
    }
    runBand(image, alpha, options.level, bands[0]);
    for (size_t i = onThisThread; i < bands.size(); ++i)
        runBand(image, alpha, options.level, bands[i]);
    for (auto &worker : workers)
        worker.join();

    size_t total = 0;
    uLong adler = 1;
    for (const Band &band : bands) {
        if (!band.ok)
            return {};
        total += band.compressedLength;
        adler = adler32_combine(adler, band.adler, z_off_t(band.rawLength));
    }

    QByteArray png;
    png.reserve(qsizetype(total + 128));
    png.append("\x89PNG\r\n\x1a\n", 8);
    uchar ihdr[13];
    qToBigEndian<quint32>(quint32(image.width()), ihdr);
    qToBigEndian<quint32>(quint32(image.height()), ihdr + 4);
    ihdr[8] = 8;               // bit depth
    ihdr[9] = alpha ? 6 : 2;   // RGBA or RGB
    ihdr[10] = ihdr[11] = ihdr[12] = 0;
    appendChunk(png, "IHDR", ihdr, sizeof ihdr);

    // One zlib stream: header, the bands' deflate data back to back, the Adler-32 of all rows.
    std::vector<uint8_t> idat;
    idat.reserve(total + 6);
    idat.push_back(0x78);
    idat.push_back(0x5e);
    for (const Band &band : bands)
        idat.insert(idat.end(), band.compressed.get(), band.compressed.get() + band.compressedLength);
    uchar tail[4];
    qToBigEndian<quint32>(quint32(adler), tail);
    idat.insert(idat.end(), tail, tail + 4);
    appendChunk(png, "IDAT", idat.data(), idat.size());
    appendChunk(png, "IEND", nullptr, 0);
    return png;
}
