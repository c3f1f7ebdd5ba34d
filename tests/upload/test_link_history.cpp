// The link history over URLArray and the rows of the panel's link pop-up.

#include "LinkHistory.h"
#include "LinkListModel.h"
#include "Settings.h"
#include "Texts.h"

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QTest>

class LinkHistoryTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { Settings::setValues({{Key::URLArray, QStringList()}, {Key::Pasted, false}}); }
    void buildAppendsOnlyPastedLinks();
    void copyAllAndClear();
    void modelRowsAndColours();
};

void LinkHistoryTest::buildAppendsOnlyPastedLinks()
{
    QCOMPARE(LinkHistory::buildListURLs(QStringLiteral("ignored")), QStringList());

    Settings::setValue(Key::Pasted, true);
    QCOMPARE(LinkHistory::buildListURLs(QStringLiteral("q.example/?x=a")), QStringList{"q.example/?x=a"});
    QVERIFY(!Settings::boolValue(Key::Pasted));
    // Not appended twice: pasted is now NO.
    QCOMPARE(LinkHistory::buildListURLs(QStringLiteral("q.example/?x=a")), QStringList{"q.example/?x=a"});

    Settings::setValue(Key::Pasted, true);
    const QStringList two = LinkHistory::buildListURLs(QStringLiteral("q.example/?x=b"));
    QCOMPARE(two, QStringList({"q.example/?x=a", "q.example/?x=b"}));  // oldest first
    QCOMPARE(Settings::stringList(Key::URLArray), two);
    QCOMPARE(LinkHistory::links(), two);
}

void LinkHistoryTest::copyAllAndClear()
{
    QCOMPARE(LinkHistory::copyAllText({"one", "two"}), QStringLiteral("one\ntwo\n"));
    QCOMPARE(LinkHistory::copyAllText({}), QString());

    Settings::setValues({{Key::URLArray, QStringList{"one", "two"}}, {Key::ToggleEdit, true}});
    LinkHistory::clear();
    QVERIFY(LinkHistory::links().isEmpty());
    QVERIFY(!Settings::boolValue(Key::ToggleEdit));
    QVERIFY(LinkHistory::buildListURLs(QString()).isEmpty());  // an empty list reads back empty
}

void LinkHistoryTest::modelRowsAndColours()
{
    LinkListModel model;
    QCOMPARE(model.rowCount(), 3);
    model.setLinks({"a", "b", "c"});
    QCOMPARE(model.rowCount(), 6);
    QCOMPARE(model.index(0).data().toString(), QString());
    QCOMPARE(model.index(1).data().toString(), Texts::CopyAllURLs);
    QCOMPARE(model.index(2).data().toString(), Texts::ClearList);
    QCOMPARE(model.index(5).data().toString(), QStringLiteral("c"));
    QCOMPARE(model.linkAt(3), QStringLiteral("a"));
    QVERIFY(model.linkAt(2).isEmpty());

    QVERIFY(!model.index(3).data(Qt::ForegroundRole).isValid());  // until coloured
    model.setColourised(true);
    const QColor dark = QColor::fromRgbF(0.21f, 0.19f, 0.19f);
    const QColor light = QColor::fromRgbF(0.6f, 0.6f, 0.6f);
    QVERIFY(!model.index(0).data(Qt::ForegroundRole).isValid());
    for (int row : {1, 2})
        QCOMPARE(model.index(row).data(Qt::ForegroundRole).value<QColor>(), dark);
    for (int row : {3, 4, 5})
        QCOMPARE(model.index(row).data(Qt::ForegroundRole).value<QColor>(), light);
    QCOMPARE(model.index(4).data(Qt::FontRole).value<QFont>().pointSizeF(), 11.0);
    QVERIFY(!model.index(6).isValid());
}

QTEST_MAIN(LinkHistoryTest)
#include "test_link_history.moc"
