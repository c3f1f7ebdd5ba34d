// Start at login against a real autostart folder in a private XDG_CONFIG_HOME.
#include "Autostart.h"
#include "DesktopEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestAutostart : public QObject {
    Q_OBJECT
    QTemporaryDir m_config;
    const QString m_exe = QStringLiteral("/opt/Quillo Apps/bin/quillo");

    QString autostart() const { return m_config.path() + QLatin1String("/autostart"); }
    void write(const QString &name, const QByteArray &text)
    {
        QDir().mkpath(autostart());
        QFile file(autostart() + u'/' + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

private slots:
    void init()
    {
        QVERIFY(m_config.isValid());
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config.path()));
        QDir(autostart()).removeRecursively();
    }

    void addThenRemove()
    {
        const Autostart item(m_exe);
        QCOMPARE(Autostart::autostartDir(), autostart());
        QVERIFY(!item.isLoginItem());

        item.addAppAsLoginItem();
        QVERIFY(QFile::exists(autostart() + QLatin1String("/quillo.desktop")));
        QVERIFY(item.isLoginItem());
        const auto entry = DesktopEntry::load(Autostart::entryFilePath());
        QVERIFY(entry);
        QCOMPARE(entry->type, QStringLiteral("Application"));
        QCOMPARE(entry->name, QStringLiteral("Quillo"));
        QCOMPARE(entry->commandFor(QString()), QStringList{m_exe});
        QVERIFY(!entry->hidden);
        QFile file(Autostart::entryFilePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("X-GNOME-Autostart-enabled=true\n"));

        item.removeAppFromLoginItems();
        QVERIFY(!item.isLoginItem());
        QVERIFY(!QFile::exists(Autostart::entryFilePath()));
    }

    void awkwardPathsSurviveTheExecLine()
    {
        const QString exe = QStringLiteral("/tmp/q $HOME \"x\" `y` \\z 100%/quillo");
        const Autostart item(exe);
        item.addAppAsLoginItem();
        QVERIFY(item.isLoginItem());
        QVERIFY(!Autostart(exe + u'2').isLoginItem());
    }

    void followsEntriesWrittenElsewhere()
    {
        const Autostart item(m_exe);
        write(QStringLiteral("my-quillo.desktop"),
              "[Desktop Entry]\nType=Application\nName=Mine\nExec=\"/opt/Quillo Apps/bin/quillo\" --toggle\n");
        QVERIFY(item.isLoginItem());

        // Switched off in the desktop's settings: Hidden=true no longer counts.
        write(QStringLiteral("my-quillo.desktop"),
              "[Desktop Entry]\nType=Application\nName=Mine\nExec=\"/opt/Quillo Apps/bin/quillo\"\nHidden=true\n");
        QVERIFY(!item.isLoginItem());

        // A path that differs only in letter case is another program.
        write(QStringLiteral("my-quillo.desktop"),
              "[Desktop Entry]\nType=Application\nExec=\"/opt/quillo apps/bin/quillo\"\n");
        QVERIFY(!item.isLoginItem());
        item.removeAppFromLoginItems();
        QVERIFY(QFile::exists(autostart() + QLatin1String("/my-quillo.desktop")));
    }

    void removeTakesEveryEntryOfThisExecutable()
    {
        const Autostart item(m_exe);
        item.addAppAsLoginItem();
        write(QStringLiteral("second.desktop"),
              "[Desktop Entry]\nType=Application\nExec=\"/opt/Quillo Apps/bin/quillo\" --capture\n");
        write(QStringLiteral("other.desktop"), "[Desktop Entry]\nType=Application\nExec=/usr/bin/other\n");
        write(QStringLiteral("broken.desktop"), "[Desktop Entry]\nExec=\"/opt/Quillo Apps/bin/quillo\n");
        QVERIFY(item.isLoginItem());

        item.removeAppFromLoginItems();
        QVERIFY(!item.isLoginItem());
        QCOMPARE(QDir(autostart()).entryList(QDir::Files, QDir::Name),
                 (QStringList{QStringLiteral("broken.desktop"), QStringLiteral("other.desktop")}));
    }

    void failuresAreSilent()
    {
        // XDG_CONFIG_HOME is a file: nothing can be written, nothing is found.
        const QString file = m_config.filePath(QStringLiteral("not-a-folder"));
        QFile(file).open(QIODevice::WriteOnly);
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(file));
        const Autostart item(m_exe);
        item.addAppAsLoginItem();
        QVERIFY(!item.isLoginItem());
        item.removeAppFromLoginItems();
    }

    void identityDefaultsToThisExecutable()
    {
        QCOMPARE(Autostart().executablePath(), QCoreApplication::applicationFilePath());
    }
};

QTEST_GUILESS_MAIN(TestAutostart)
#include "test_autostart.moc"
