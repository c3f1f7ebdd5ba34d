// Desktop entries: parsing, Exec expansion, launching a real program, the catalogue.
#include "AppCatalogue.h"
#include "DesktopEntry.h"

#include <QDir>
#include <QFile>
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

DesktopExec::Context context(const QString &file)
{
    return DesktopExec::Context{file, QStringLiteral("viewer-icon"), QStringLiteral("My Viewer"),
                                QStringLiteral("/apps/viewer.desktop")};
}
}  // namespace

class TestDesktopEntries : public QObject {
    Q_OBJECT
    QTemporaryDir m_tmp;

private slots:
    void parsesTheEntryGroup()
    {
        const QByteArray text =
            "# comment\n[Desktop Entry]\nType = Application\nName=Viewer\nName[de]=Betrachter\n"
            "Name[de_CH]=Luegi\nExec=view\\s%f\nTryExec=/no/such/program\nIcon=viewer\n"
            "MimeType=image/png;image/jpeg;text/x\\;y;\nNoDisplay=true\nHidden=false\nTerminal=true\n"
            "Name=Second\n[Desktop Action new]\nName=Action\nExec=other\n";
        const auto entry = DesktopEntry::parse(text, QStringLiteral("/x.desktop"), QLocale(QLocale::C));
        QVERIFY(entry);
        QCOMPARE(entry->type, QStringLiteral("Application"));
        QCOMPARE(entry->name, QStringLiteral("Viewer"));
        QCOMPARE(entry->exec, QStringLiteral("view %f"));
        QCOMPARE(entry->icon, QStringLiteral("viewer"));
        QCOMPARE(entry->mimeTypes, (QStringList{"image/png", "image/jpeg", "text/x;y"}));
        QVERIFY(entry->noDisplay && !entry->hidden && entry->terminal);
        QVERIFY(entry->tryExecMissing());

        QCOMPARE(DesktopEntry::parse(text, {}, QLocale("de_DE"))->name, QStringLiteral("Betrachter"));
        QCOMPARE(DesktopEntry::parse(text, {}, QLocale("de_CH"))->name, QStringLiteral("Luegi"));
        QCOMPARE(DesktopEntry::parse(text, {}, QLocale("fr_FR"))->name, QStringLiteral("Viewer"));

        QCOMPARE(DesktopEntry::parse("\xEF\xBB\xBF[Desktop Entry]\r\nName=Bom\r\n", {})->name, QStringLiteral("Bom"));
        QVERIFY(!DesktopEntry::parse("Name=x\nExec=y\n", {}));
        QVERIFY(!DesktopEntry::parse("", {}));
        QVERIFY(!DesktopEntry::load(QStringLiteral("/no/such.desktop")));
    }

    void expandsExecLines_data()
    {
        QTest::addColumn<QString>("exec");  // as it stands in the file
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("expected");
        const QString f = QStringLiteral("/tmp/shot 1.png");
        const QString u = QStringLiteral("file:///tmp/shot%201.png");
        QTest::newRow("%f") << "view %f" << f << QStringList{"view", f};
        QTest::newRow("%F") << "view --all %F" << f << QStringList{"view", "--all", f};
        QTest::newRow("%u") << "view %u" << f << QStringList{"view", u};
        QTest::newRow("%U") << "view %U" << f << QStringList{"view", u};
        QTest::newRow("no code: file appended") << "view --new" << f << QStringList{"view", "--new", f};
        QTest::newRow("no file") << "view %f --x" << QString() << QStringList{"view", "--x"};
        QTest::newRow("embedded code") << "view --open=%f" << f << QStringList{"view", "--open=" + f};
        QTest::newRow("%i") << "view %i %f" << f << QStringList{"view", "--icon", "viewer-icon", f};
        QTest::newRow("%c %k") << "view %c %k" << f
                               << QStringList{"view", "My Viewer", "/apps/viewer.desktop", f};
        QTest::newRow("%%") << "printf 100%% %f" << f << QStringList{"printf", "100%", f};
        QTest::newRow("deprecated codes vanish") << "view %d %D %n %N %v %m %f" << f << QStringList{"view", f};
        QTest::newRow("quoted program") << "\"/opt/My Apps/view\" %f" << f
                                        << QStringList{"/opt/My Apps/view", f};
        QTest::newRow("escaped quote") << R"(sh -c "echo \\"hi\\"")" << QString()
                                       << QStringList{"sh", "-c", "echo \"hi\""};
        QTest::newRow("escaped dollar, backtick") << R"(say "\\$HOME \\`x\\`")" << QString()
                                                  << QStringList{"say", "$HOME `x`"};
        QTest::newRow("backslash in quotes") << R"(say "a\\\\b")" << QString() << QStringList{"say", "a\\b"};
        QTest::newRow("empty quoted word kept") << "say \"\" x" << QString() << QStringList{"say", "", "x"};
        QTest::newRow("code inside quotes") << "view \"--file=%f\"" << f << QStringList{"view", "--file=" + f};
        QTest::newRow("%i without icon") << "view %i" << QString() << QStringList{"view"};
        QTest::newRow("tabs and runs of blanks") << "view\\t  -a   %f" << f << QStringList{"view", "-a", f};
    }

    void expandsExecLines()
    {
        QFETCH(QString, exec);
        QFETCH(QString, file);
        QFETCH(QStringList, expected);
        const auto entry = DesktopEntry::parse("[Desktop Entry]\nExec=" + exec.toUtf8() + '\n', {});
        QVERIFY(entry);
        DesktopExec::Context ctx = context(file);
        if (QByteArray(QTest::currentDataTag()) == "%i without icon")
            ctx.icon.clear();
        const auto command = DesktopExec::expand(entry->exec, ctx);
        QVERIFY(command);
        QCOMPARE(*command, expected);
    }

    void refusesMalformedExecLines()
    {
        QVERIFY(!DesktopExec::expand(QString(), context({})));
        QVERIFY(!DesktopExec::expand(QStringLiteral("   "), context({})));
        QVERIFY(!DesktopExec::expand(QStringLiteral("\"/opt/view %f"), context(QStringLiteral("/a"))));
        QVERIFY(!DesktopExec::expand(QStringLiteral("%f"), context({})));
    }

    void quotingRoundTrips()
    {
        const QString word = QStringLiteral("/tmp/a \"b\" $c `d` \\e 50% f\tg");
        const QString line = DesktopExec::escapeValue(DesktopExec::quoteArgument(word)) + " %f";
        const auto entry = DesktopEntry::parse("[Desktop Entry]\nExec=" + line.toUtf8() + '\n', {});
        QVERIFY(entry);
        QCOMPARE(entry->program(), word);
    }

    void catalogueListsImageApplications()
    {
        const QString home = m_tmp.filePath(QStringLiteral("data-home"));
        const QString system = m_tmp.filePath(QStringLiteral("data-system"));
        qputenv("XDG_DATA_HOME", QFile::encodeName(home));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(system + u':' + system + u'/'));
        QCOMPARE(AppCatalogue::applicationDirs(), (QStringList{home + "/applications", system + "/applications"}));

        const QByteArray app = "[Desktop Entry]\nType=Application\nExec=view %f\n";
        writeFile(home + "/applications/zviewer.desktop", app + "Name=zebra Viewer\nMimeType=image/png;\nIcon=zv\n");
        writeFile(home + "/applications/vendor/paint.desktop", app + "Name=Paint\nMimeType=text/plain;image/jpeg\n");
        writeFile(home + "/applications/hidden.desktop", app + "Name=Hidden\nMimeType=image/png\nHidden=true\n");
        writeFile(home + "/applications/nodisplay.desktop", app + "Name=NoDisplay\nMimeType=image/png\nNoDisplay=true\n");
        writeFile(home + "/applications/text.desktop", app + "Name=Editor\nMimeType=text/plain\n");
        writeFile(home + "/applications/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nMimeType=image/png\n");
        writeFile(home + "/applications/tryexec.desktop", app + "Name=Gone\nMimeType=image/png\nTryExec=/no/such\n");
        // Below: one shadowed by a user copy, one removed by a Hidden user copy, one new.
        writeFile(system + "/applications/zviewer.desktop", app + "Name=System Viewer\nMimeType=image/png\n");
        writeFile(system + "/applications/hidden.desktop", app + "Name=System Hidden\nMimeType=image/png\n");
        writeFile(system + "/applications/album.desktop", app + "Name=Album\nMimeType=image/gif;\n");

        const QList<CatalogueApp> apps = AppCatalogue::imageApps();
        QStringList names, ids;
        for (const CatalogueApp &a : apps) {
            names << a.name;
            ids << a.id;
        }
        QCOMPARE(names, (QStringList{"Album", "Paint", "zebra Viewer"}));
        QCOMPARE(ids, (QStringList{"album.desktop", "vendor-paint.desktop", "zviewer.desktop"}));
        QCOMPARE(apps.at(2).entryPath, home + "/applications/zviewer.desktop");
        QCOMPARE(apps.at(2).iconName, QStringLiteral("zv"));
    }
};

QTEST_GUILESS_MAIN(TestDesktopEntries)
#include "test_desktop_entries.moc"
