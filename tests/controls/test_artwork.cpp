// Every image renders at 1x and 2x; identical requests give the same pixmap; and a
// sample panel of all controls is saved for looking at.
#include "Artwork.h"
#include "DesktopTools.h"
#include "SamplePanel.h"

#include <QPainter>
#include <QTest>

namespace {

int opaquePixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

const QStringList kRequired = {
    "statusicon_black", "statusicon_white", "butt0", "butt1", "butt2", "butt3", "edit", "edit_off",
    "inactive", "inactive_off", "method-selection", "method-window", "method-screen", "output-save",
    "output-upload", "output-open", "gear", "quillo", "clear", "shoot", "camera"};

}  // namespace

class TestArtwork : public QObject
{
    Q_OBJECT

private slots:
    void everyImageRenders()
    {
        const QStringList names = Artwork::names();
        for (const QString &name : kRequired)
            QVERIFY2(names.contains(name), qPrintable(name));
        for (const QString &name : names) {
            const QSize natural = Artwork::naturalSize(name);
            QVERIFY2(!natural.isEmpty(), qPrintable(name));
            for (qreal dpr : {1.0, 2.0}) {
                const QPixmap pixmap = Artwork::image(name, natural, dpr);
                QVERIFY2(!pixmap.isNull(), qPrintable(name));
                QCOMPARE(pixmap.size(), natural * dpr);
                QCOMPARE(pixmap.devicePixelRatio(), dpr);
                const int opaque = opaquePixels(pixmap.toImage());
                if (name == QLatin1String("inactive_off"))
                    QCOMPARE(opaque, 0);
                else
                    QVERIFY2(opaque > 0, qPrintable(name));
            }
            // The resource path the application uses, without an extension.
            QVERIFY2(!QIcon(Artwork::path(name)).pixmap(QSize(16, 16)).isNull() || name == "inactive_off",
                     qPrintable(name));
        }
        QVERIFY(Artwork::image(QStringLiteral("no-such-image"), QSize(10, 10)).isNull());
    }

    void sameNameSameImage()
    {
        const QPixmap a = Artwork::image(QStringLiteral("butt2"), QSize(80, 52), 2.0);
        const QPixmap b = Artwork::image(QStringLiteral("butt2"), QSize(80, 52), 2.0);
        QCOMPARE(a.cacheKey(), b.cacheKey());
        QVERIFY(a.cacheKey() != Artwork::image(QStringLiteral("butt3"), QSize(80, 52), 2.0).cacheKey());
        const QPixmap tinted = Artwork::tinted(QStringLiteral("gear"), QSize(20, 20), 1.0, Qt::red);
        const QImage image = tinted.toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (qAlpha(image.pixel(x, y)) == 255)
                    QCOMPARE(QColor(image.pixel(x, y)), QColor(Qt::red));
    }

    void samplePanel()
    {
        SamplePanel panel;
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        const QImage shot = panel.grab().toImage();

        // Beside the panel: the tray icons on a light and a highlighted bar, the app icon,
        // and every image at 2x.
        const QStringList names = Artwork::names();
        QImage sheet(QSize(panel.width() + 420, std::max(panel.height(), 300)) * 2,
                     QImage::Format_ARGB32_Premultiplied);
        sheet.setDevicePixelRatio(2.0);
        sheet.fill(QColor(0xee, 0xef, 0xef));
        QPainter painter(&sheet);
        painter.drawImage(QRectF(0, 0, panel.width(), panel.height()), shot);
        int x = panel.width() + 12, y = 10;
        painter.fillRect(QRect(x, y, 60, 24), QColor(0xf4, 0xf4, 0xf4));
        painter.drawPixmap(x + 4, y + 1, Artwork::image("statusicon_black", QSize(22, 22), 2.0));
        painter.fillRect(QRect(x + 30, y, 30, 24), QColor(0x2b, 0x80, 0x69));
        painter.drawPixmap(x + 34, y + 1, Artwork::image("statusicon_white", QSize(22, 22), 2.0));
        painter.drawPixmap(x + 80, y, Artwork::image("quillo", QSize(64, 64), 2.0));
        painter.drawPixmap(x + 160, y, Artwork::image("quillo", QSize(128, 128), 1.0).scaled(64, 64));
        y = 90;
        for (const QString &name : names) {
            QSize size = Artwork::naturalSize(name);
            if (size.width() > 120)
                size.scale(120, 60, Qt::KeepAspectRatio);
            if (x + size.width() > sheet.width() / 2 - 8) {
                x = panel.width() + 12;
                y += 64;
            }
            painter.drawPixmap(x, y, Artwork::image(name, size, 2.0));
            x += size.width() + 10;
        }
        painter.end();
        DesktopTools::saveArtifact(QStringLiteral("controls.png"), sheet);
        // The panel's real pixels, enlarged without smoothing.
        DesktopTools::saveArtifact(QStringLiteral("controls-panel-zoom.png"),
                                   shot.scaled(shot.size() * 3, Qt::IgnoreAspectRatio, Qt::FastTransformation));
        QCOMPARE(shot.size(), panel.size() * panel.devicePixelRatio());
    }
};

QTEST_MAIN(TestArtwork)
#include "test_artwork.moc"
