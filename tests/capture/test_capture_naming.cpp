// File naming and the grabber's argument lists.
#include "CaptureRequest.h"

#include <QSet>
#include <QTest>

class TestCaptureNaming : public QObject
{
    Q_OBJECT

private:
    static CaptureRequest request(const QString &name, const QString &shotName = QString())
    {
        CaptureRequest r;
        r.methodFlag = QStringLiteral("-i");
        r.format = QStringLiteral("jpg");
        r.folder = QStringLiteral("/home/u/Desktop/");
        r.name = name;
        r.shotName = shotName;
        return r;
    }

private slots:
    void numbersTakenNames()
    {
        QSet<QString> taken;
        auto exists = [&taken](const QString &p) { return taken.contains(p); };
        const CaptureRequest r = request(QStringLiteral("Quillo"), QStringLiteral("Quillo"));

        QCOMPARE(CaptureNaming::chooseFile(r, exists).path, QStringLiteral("/home/u/Desktop/Quillo.jpg"));
        taken.insert(QStringLiteral("/home/u/Desktop/Quillo.jpg"));
        QCOMPARE(CaptureNaming::chooseFile(r, exists).path, QStringLiteral("/home/u/Desktop/Quillo1.jpg"));
        taken.insert(QStringLiteral("/home/u/Desktop/Quillo1.jpg"));
        const CaptureFile third = CaptureNaming::chooseFile(r, exists);
        QCOMPARE(third.path, QStringLiteral("/home/u/Desktop/Quillo2.jpg"));
        QCOMPARE(third.plainName, QStringLiteral("Quillo.jpg"));
    }

    void numberedNamesComeFromTheLastShot()
    {
        // The first candidate uses the name given; numbering uses the latest shoot's name.
        auto exists = [](const QString &p) { return p.endsWith(QLatin1String("/Typed.png")); };
        CaptureRequest r = request(QStringLiteral("Typed"), QStringLiteral("Earlier"));
        r.format = QStringLiteral("PNG");
        QCOMPARE(CaptureNaming::chooseFile(r, exists).path, QStringLiteral("/home/u/Desktop/Earlier1.png"));
    }

    void captureWithoutNameIsNamedQuillo()
    {
        QSet<QString> taken{QStringLiteral("/home/u/Desktop/Quillo.jpg")};
        auto exists = [&taken](const QString &p) { return taken.contains(p); };
        const CaptureRequest r = request(QString());  // silent capture, no shoot yet
        const CaptureFile file = CaptureNaming::chooseFile(r, exists);
        QCOMPARE(file.path, QStringLiteral("/home/u/Desktop/Quillo1.jpg"));
        QVERIFY(!file.path.contains(QLatin1String("null")));
    }

    void aTypedNameStaysInTheFolder()
    {
        auto none = [](const QString &) { return false; };
        QCOMPARE(CaptureNaming::chooseFile(request(QStringLiteral("2024/05/01")), none).path,
                 QStringLiteral("/home/u/Desktop/2024-05-01.jpg"));
        QCOMPARE(CaptureNaming::chooseFile(request(QStringLiteral("../../etc/x")), none).path,
                 QStringLiteral("/home/u/Desktop/..-..-etc-x.jpg"));
    }

    void typeOptionKeepsTheTitle()
    {
        QCOMPARE(CaptureNaming::typeOption(QStringLiteral("PNG")), QStringLiteral("-tPNG"));
        QCOMPARE(CaptureNaming::extension(QStringLiteral("PNG")), QStringLiteral("png"));
    }

    void argumentTable_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<bool>("shadows");
        QTest::addColumn<QStringList>("expected");
        const QString t = QStringLiteral("-tjpg"), p = QStringLiteral("/d/Quillo.jpg");
        QTest::newRow("selection, shadows") << "-i" << true << QStringList{"-i", t, p};
        QTest::newRow("selection, no shadows") << "-i" << false << QStringList{"-i", "-o", t, p};
        QTest::newRow("window, shadows") << "-w" << true << QStringList{"-w", t, p};
        QTest::newRow("window, no shadows") << "-w" << false << QStringList{"-w", "-o", t, p};
        QTest::newRow("screen, shadows") << "" << true << QStringList{t, p};
        QTest::newRow("screen, no shadows") << "" << false << QStringList{"-o", t, p};
    }

    void argumentTable()
    {
        QFETCH(QString, method);
        QFETCH(bool, shadows);
        QFETCH(QStringList, expected);
        CaptureRequest r = request(QStringLiteral("Quillo"));
        r.methodFlag = method;
        r.shadows = shadows;
        QCOMPARE(CaptureNaming::arguments(r, QStringLiteral("/d/Quillo.jpg")), expected);
    }
};

QTEST_GUILESS_MAIN(TestCaptureNaming)
#include "test_capture_naming.moc"
