// Opening a capture: through a desktop entry, and through the desktop's default viewer.
#include "OutputLauncher.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {
void writeFile(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}
}  // namespace

class TestOutputLauncher : public QObject {
    Q_OBJECT
    QTemporaryDir m_tmp;
    QString m_script, m_out;

    // The arguments the helper program wrote, or a marker when it did not run.
    QStringList receivedArguments()
    {
        if (!QTest::qWaitFor([&] { return QFile::exists(m_out); }, 5000))
            return {QStringLiteral("<no output>")};
        QFile file(m_out);
        file.open(QIODevice::ReadOnly);
        QStringList args = QString::fromUtf8(file.readAll()).split(QChar(0));
        args.removeLast();
        return args;
    }

private slots:
    void initTestCase()
    {
        // A real program that writes each argument it got, NUL-terminated.
        m_script = m_tmp.filePath(QStringLiteral("bin/argdump"));
        m_out = m_tmp.filePath(QStringLiteral("bin/args.out"));
        writeFile(m_script, "#!/bin/sh\nd=$(dirname \"$0\")\nprintf '%s\\0' \"$@\" > \"$d/args.tmp\"\n"
                            "mv \"$d/args.tmp\" \"$d/args.out\"\n");
        QFile(m_script).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void init() { QFile::remove(m_out); }

    void launchesAProgramWithTheFile()
    {
        const QString shot = m_tmp.filePath(QStringLiteral("shot 1 $HOME 'q' \"d\".png"));
        writeFile(shot, "png");
        const auto runWith = [&](const QByteArray &execTail) -> QStringList {
            QFile::remove(m_out);
            const QString entry = m_tmp.filePath(QStringLiteral("argdump.desktop"));
            writeFile(entry, "[Desktop Entry]\nType=Application\nName=Dump\nExec=\""
                                 + m_script.toUtf8() + "\"" + execTail + "\n");
            if (!OutputLauncher::openWithDesktopEntry(entry, shot))
                return {QStringLiteral("<not started>")};
            return receivedArguments();
        };
        QCOMPARE(runWith(" %f"), QStringList{shot});
        QCOMPARE(runWith(""), QStringList{shot});
        QCOMPARE(runWith(" --view %U"), (QStringList{"--view", QUrl::fromLocalFile(shot).toString(QUrl::FullyEncoded)}));

        QVERIFY(!OutputLauncher::openWithDesktopEntry(m_tmp.filePath(QStringLiteral("none.desktop")), shot));
        const QString missing = m_tmp.filePath(QStringLiteral("missing.desktop"));
        writeFile(missing, "[Desktop Entry]\nType=Application\nExec=/no/such/program %f\n");
        QVERIFY(!OutputLauncher::openWithDesktopEntry(missing, shot));
        writeFile(missing, "[Desktop Entry]\nType=Link\nExec=" + m_script.toUtf8() + "\n");
        QVERIFY(!OutputLauncher::openWithDesktopEntry(missing, shot));
    }

    void defaultViewerIsTheDesktopsChoice()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty())
            QSKIP("xdg-open (xdg-utils) is not installed");
        const QString data = m_tmp.filePath(QStringLiteral("data"));
        const QString config = m_tmp.filePath(QStringLiteral("config"));
        qputenv("XDG_DATA_HOME", QFile::encodeName(data));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config));
        // Only the test viewer is known, and no real browser or viewer can be a fallback.
        // The system's MIME database stays visible, its applications do not.
        const QString systemData = m_tmp.filePath(QStringLiteral("system-data"));
        QDir().mkpath(systemData);
        QFile::link(QStringLiteral("/usr/share/mime"), systemData + QLatin1String("/mime"));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(systemData));
        qputenv("BROWSER", "true");
        QVERIFY(!m_script.contains(u' '));  // xdg-utils reads the program as the first blank-separated word
        writeFile(data + "/applications/quillo-test-viewer.desktop",
                  "[Desktop Entry]\nType=Application\nName=Test Viewer\nMimeType=image/png;\nExec="
                      + m_script.toUtf8() + " %f\n");
        writeFile(config + "/mimeapps.list", "[Default Applications]\nimage/png=quillo-test-viewer.desktop\n");
        const QString shot = m_tmp.filePath(QStringLiteral("default viewer.png"));
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(shot));

        QVERIFY(OutputLauncher::openInDefaultViewer(shot));
        QCOMPARE(receivedArguments(), QStringList{shot});
        QVERIFY(!OutputLauncher::openInDefaultViewer(QString()));
    }
};

QTEST_MAIN(TestOutputLauncher)
#include "test_output_launcher.moc"
