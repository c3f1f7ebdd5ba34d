// Stored file URLs, file labels on real files, and the installed help page.
#include "FileLabel.h"
#include "FileUrl.h"
#include "HelpPage.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/xattr.h>

class TestFiles : public QObject {
    Q_OBJECT
    QTemporaryDir m_tmp;

    // A folder whose filesystem keeps user extended attributes, or empty.
    QString xattrFolder()
    {
        const QString setfattr = QStandardPaths::findExecutable(QStringLiteral("setfattr"));
        for (const QString &base : {QDir::tempPath(), QDir::homePath()}) {
            const QString probe = base + QLatin1String("/quillo-xattr-probe");
            QFile(probe).open(QIODevice::WriteOnly);
            bool ok;
            if (!setfattr.isEmpty())
                ok = QProcess::execute(setfattr, {"-n", "user.quillo.probe", "-v", "1", probe}) == 0;
            else
                ok = setxattr(QFile::encodeName(probe).constData(), "user.quillo.probe", "1", 1, 0) == 0;
            QFile::remove(probe);
            if (ok)
                return base;
        }
        return QString();
    }

private slots:
    void storedFormRoundTrips_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isDir");
        QTest::newRow("spaces") << "/home/u/My Pictures" << true;
        QTest::newRow("percent") << "/tmp/100% real/a%20b" << true;
        QTest::newRow("hash, query") << "/tmp/a#b?c=d&e;f+g" << false;
        QTest::newRow("unicode") << "/home/u/Bilder – Ünïcødé 写真/Übersicht.desktop" << false;
        QTest::newRow("root") << "/" << true;
    }

    void storedFormRoundTrips()
    {
        QFETCH(QString, path);
        QFETCH(bool, isDir);
        const QString stored = FileUrl::toStoredForm(path, isDir);
        QVERIFY(stored.startsWith(QLatin1String("file://localhost/")));
        QVERIFY(!stored.contains(u' ') && !stored.contains(u'#'));
        const QString expected = isDir && !path.endsWith(u'/') ? path + u'/' : path;
        QCOMPARE(stored.mid(16, 1), QStringLiteral("/"));  // the path starts at the 17th character
        QCOMPARE(FileUrl::pathFromStoredForm(stored), expected);
    }

    void readsOtherFormsAndRefusesBadOnes()
    {
        QCOMPARE(FileUrl::pathFromStoredForm("file:///tmp/a%20b%23c"), QStringLiteral("/tmp/a b#c"));
        QCOMPARE(FileUrl::pathFromStoredForm("file://localhost/Users/x/My%20Pics/"), QStringLiteral("/Users/x/My Pics/"));
        QCOMPARE(FileUrl::pathFromStoredForm("file://LOCALHOST/x%C3%BC"), QStringLiteral("/xü"));
        QCOMPARE(FileUrl::pathFromStoredForm("/plain/path 100%"), QStringLiteral("/plain/path 100%"));
        for (const char *bad : {"", "relative/x", "http://localhost/x", "file://otherhost/x",
                                "file://localhost/a%zzb", "file://localhost/a%00b", "file:relative",
                                "file://localhost/%FF%FE"})
            QVERIFY2(FileUrl::pathFromStoredForm(QString::fromLatin1(bad)).isEmpty(), bad);
        QVERIFY(FileUrl::toStoredForm(QString(), true).isEmpty());
        QVERIFY(FileUrl::toStoredForm(QStringLiteral("relative"), false).isEmpty());
    }

    void saveFolderLabels()
    {
        QCOMPARE(FileUrl::saveFolderLabel("/home/u/Pictures"), QStringLiteral("Saves to /Pictures"));
        QCOMPARE(FileUrl::saveFolderLabel("/home/u/My Shots/"), QStringLiteral("Saves to /My Shots"));
        QCOMPARE(FileUrl::saveFolderLabel("/"), QStringLiteral("Saves to /"));
    }

    void labelsKeepOtherTags()
    {
        QCOMPARE(FileLabel::colourName(1), QStringLiteral("Orange"));
        QCOMPARE(FileLabel::colourName(7), QStringLiteral("Gray"));
        QVERIFY(FileLabel::colourName(0).isEmpty() && FileLabel::colourName(8).isEmpty());

        const QString base = xattrFolder();
        if (base.isEmpty())
            QSKIP("neither the temporary folder nor HOME keeps user extended attributes");
        QTemporaryDir dir(base + QLatin1String("/quillo-label-XXXXXX"));
        const QString shot = dir.filePath(QStringLiteral("Quillo 1.jpg"));
        QFile(shot).open(QIODevice::WriteOnly);
        const QByteArray existing = "work,Project X";
        QCOMPARE(setxattr(QFile::encodeName(shot).constData(), "user.xdg.tags", existing.constData(),
                          existing.size(), 0), 0);

        QVERIFY(FileLabel::apply(shot, 2));
        QCOMPARE(FileLabel::tags(shot), (QStringList{"work", "Project X", "Red"}));
        QVERIFY(FileLabel::apply(shot, 2));
        QVERIFY(FileLabel::apply(shot, 7));
        QVERIFY(!FileLabel::apply(shot, 0));
        QCOMPARE(FileLabel::tags(shot), (QStringList{"work", "Project X", "Red", "Gray"}));

        const QString fresh = dir.filePath(QStringLiteral("fresh.png"));
        QFile(fresh).open(QIODevice::WriteOnly);
        QVERIFY(FileLabel::apply(fresh, 4));
        QCOMPARE(FileLabel::tags(fresh), QStringList{"Blue"});

        QTest::ignoreMessage(QtInfoMsg, QRegularExpression("^File label not set on .*missing.png: "));
        QVERIFY(!FileLabel::apply(dir.filePath(QStringLiteral("missing.png")), 1));
    }

    void helpPageIsInstalledAndRefreshed()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_tmp.filePath(QStringLiteral("data"))));
        const QString path = HelpPage::installedPath();
        QCOMPARE(path, m_tmp.filePath(QStringLiteral("data/Quillo/help/index.html")));
        QFile shipped(QString::fromLatin1(HelpPage::ResourcePath));
        QVERIFY(shipped.open(QIODevice::ReadOnly));
        const QByteArray page = shipped.readAll();
        for (const char *needed : {"Super</kbd>+<kbd>Shift</kbd>+<kbd>2", "quillo --capture", "quillo --toggle",
                                   "Quillo.conf", "imagehosturl", "imagehostkey", "shortenerurl",
                                   "linkhost", "uploader", "Run On Startup"})
            QVERIFY2(page.contains(needed), needed);

        auto installed = [&] {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        QCOMPARE(installed(), page);
        {
            QFile old(path);
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write("outdated");
        }
        QCOMPARE(HelpPage::installedPath(), path);
        QCOMPARE(installed(), page);
        QCOMPARE(HelpPage::installedUrl(), QUrl::fromLocalFile(path));
    }
};

QTEST_GUILESS_MAIN(TestFiles)
#include "test_files.moc"
