// The grabber's command line, the fake back end the application's tests use, every image
// type read back by its own reader, and the PNG writer against Qt's PNG reader.
#include "GrabberProcess.h"
#include "PngEncoder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

class TestGrabberCli : public QObject
{
    Q_OBJECT
private slots:
    void badArgumentsExitTwoWithUsage_data();
    void badArgumentsExitTwoWithUsage();
    void helpExitsZero();
    void fakeBackendWritesTheGradient();
    void fakeCancelLeavesNoFile();
    void unsupportedSessionSaysSo();
    void missingFolderIsAnError();
    void everyTypeIsReadable_data();
    void everyTypeIsReadable();
    void pngRoundTripsExactly_data();
    void pngRoundTripsExactly();

private:
    QTemporaryDir m_dir;
};

void TestGrabberCli::badArgumentsExitTwoWithUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no file") << QStringList{QStringLiteral("-tpng")};
    QTest::newRow("unknown option") << QStringList{QStringLiteral("-x"), QStringLiteral("a.png")};
    QTest::newRow("unknown type") << QStringList{QStringLiteral("-tgif"), QStringLiteral("a.gif")};
    QTest::newRow("both modes") << QStringList{QStringLiteral("-i"), QStringLiteral("-w"), QStringLiteral("a.jpg")};
    QTest::newRow("two files") << QStringList{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")};
}

void TestGrabberCli::badArgumentsExitTwoWithUsage()
{
    QFETCH(QStringList, arguments);
    const GrabberRun run = runGrabber(arguments, fakeEnvironment());
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.err.contains("usage: quillo-screencapture"));
    QVERIFY(!QFile::exists(QStringLiteral("a.png")) && !QFile::exists(QStringLiteral("a.jpg")));
}

void TestGrabberCli::helpExitsZero()
{
    const GrabberRun run = runGrabber({QStringLiteral("-h")});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.startsWith("usage: quillo-screencapture [-i | -w] [-o] [-t<type>] <file>"));
}

void TestGrabberCli::fakeBackendWritesTheGradient()
{
    for (const QString &mode : {QStringLiteral("-i"), QStringLiteral("-w"), QStringLiteral("-o")}) {
        const QString file = m_dir.filePath(QStringLiteral("fake%1.png").arg(mode));
        const GrabberRun run = runGrabber({mode, QStringLiteral("-tPNG"), file}, fakeEnvironment());
        QCOMPARE(run.exitCode, 0);
        const QImage image(file);
        QCOMPARE(image.size(), QSize(320, 200));
        QCOMPARE(image.pixel(0, 0), qRgb(0, 0, 128));
        QCOMPARE(image.pixel(319, 199), qRgb(255, 255, 128));
    }
    // No -t: JPEG.
    const QString jpeg = m_dir.filePath(QStringLiteral("fake-default"));
    QCOMPARE(runGrabber({jpeg}, fakeEnvironment()).exitCode, 0);
    QCOMPARE(QImageReader(jpeg).format(), QByteArray("jpeg"));
}

void TestGrabberCli::fakeCancelLeavesNoFile()
{
    const QString file = m_dir.filePath(QStringLiteral("cancelled.jpg"));
    QCOMPARE(runGrabber({QStringLiteral("-i"), file}, fakeEnvironment(true)).exitCode, 1);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(QDir(m_dir.path()).entryList({QStringLiteral("cancelled*")}, QDir::Files).size(), 0);
}

void TestGrabberCli::unsupportedSessionSaysSo()
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.insert(QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("wayland-0"));
    const QString file = m_dir.filePath(QStringLiteral("none.png"));
    const GrabberRun run = runGrabber({QStringLiteral("-tpng"), file}, env);
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.err.contains("screen capture is not supported in this session"));
    QCOMPARE(run.err.count('\n'), 1);
    QVERIFY(!QFile::exists(file));
}

void TestGrabberCli::missingFolderIsAnError()
{
    const GrabberRun run = runGrabber({m_dir.filePath(QStringLiteral("no/such/folder/x.jpg"))}, fakeEnvironment());
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.err.count('\n'), 1);
}

void TestGrabberCli::everyTypeIsReadable_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("jpg") << QStringLiteral("-tjpg") << QByteArray("jpeg");
    QTest::newRow("jpeg alias") << QStringLiteral("-tjpeg") << QByteArray("jpeg");
    QTest::newRow("png") << QStringLiteral("-tpng") << QByteArray("png");
    QTest::newRow("tiff") << QStringLiteral("-tTIFF") << QByteArray("tiff");
    QTest::newRow("bmp") << QStringLiteral("-tbmp") << QByteArray("bmp");
    QTest::newRow("webp") << QStringLiteral("-twebp") << QByteArray("webp");
    QTest::newRow("pdf") << QStringLiteral("-tpdf") << QByteArray();
}

void TestGrabberCli::everyTypeIsReadable()
{
    QFETCH(QString, option);
    QFETCH(QByteArray, format);
    const QString file = m_dir.filePath(QStringLiteral("type") + option);
    QCOMPARE(runGrabber({option, file}, fakeEnvironment()).exitCode, 0);
    if (format.isEmpty()) {
        QFile pdf(file);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        const QByteArray data = pdf.readAll();
        QVERIFY(data.startsWith("%PDF"));
        QVERIFY(data.contains("/Type /Page\n") || data.contains("/Type /Page "));
        QVERIFY(data.contains("/Image"));
        return;
    }
    QImageReader reader(file);
    QCOMPARE(reader.format(), format);
    const QImage image = reader.read();
    QCOMPARE(image.size(), QSize(320, 200));
    // Lossless types keep the pixels; lossy ones stay close.
    const QRgb p = image.pixel(160, 100);
    QVERIFY2(qAbs(qRed(p) - 128) <= 6 && qAbs(qGreen(p) - 128) <= 6 && qAbs(qBlue(p) - 128) <= 6,
             qPrintable(QString::number(p, 16)));
}

void TestGrabberCli::pngRoundTripsExactly_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("alpha");
    QTest::addColumn<int>("bands");
    QTest::newRow("1x1") << QSize(1, 1) << false << 2;
    QTest::newRow("odd opaque, 2 bands") << QSize(333, 517) << false << 2;
    QTest::newRow("odd alpha, 3 bands") << QSize(257, 300) << true << 3;
    QTest::newRow("one band") << QSize(64, 64) << false << 1;
}

void TestGrabberCli::pngRoundTripsExactly()
{
    QFETCH(QSize, size);
    QFETCH(bool, alpha);
    QFETCH(int, bands);
    // Noise, flat areas and gradients, so every filter gets chosen somewhere.
    QImage image(size, alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    QRandomGenerator random(7);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int region = (y / 40) % 3;
            const QRgb noise = random.generate();
            const QRgb value = region == 0 ? noise : region == 1 ? qRgb(x % 256, y % 256, 40) : qRgb(9, 9, 9);
            image.setPixel(x, y, alpha ? (value & 0xffffff) | (uint(x * 7 + y) % 256) << 24 : value | 0xff000000);
        }
    }
    PngEncoder::Options options;
    options.bands = bands;
    QByteArray png = PngEncoder::encode(image, options);
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    const QImage back = reader.read();
    QVERIFY2(!back.isNull(), qPrintable(reader.errorString()));
    QCOMPARE(back.convertToFormat(image.format()), image);
}

QTEST_GUILESS_MAIN(TestGrabberCli)
#include "test_grabber_cli.moc"
