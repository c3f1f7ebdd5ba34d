// Where the panels go relative to the tray icon and the screen.
#include "PanelPlacement.h"

#include <QTest>

class TestPanelPlacement : public QObject
{
    Q_OBJECT
private slots:
    void hangsCentredUnderTheIcon()
    {
        const QRect screen(0, 0, 1920, 1080);
        bool upward = true;
        const QRect r = PanelPlacement::place(QRect(900, 1, 22, 22), QSize(280, 280), screen, &upward);
        QCOMPARE(r, QRect(771, 23, 280, 280));  // 900 + 11 - 140
        QVERIFY(!upward);
    }

    void staysOnScreenAtTheRightEdge()
    {
        const QRect screen(0, 0, 1920, 1080);
        const QRect r = PanelPlacement::place(QRect(1897, 1, 22, 22), QSize(280, 280), screen);
        QCOMPARE(r.right(), screen.right());
        QCOMPARE(r.top(), 23);
        const QRect left = PanelPlacement::place(QRect(0, 1, 22, 22), QSize(280, 280), screen);
        QCOMPARE(left.left(), 0);
    }

    void opensUpwardFromABottomTray()
    {
        const QRect screen(0, 0, 1920, 1056);  // a bottom panel takes 24 px
        bool upward = false;
        const QRect r = PanelPlacement::place(QRect(1897, 1057, 22, 22), QSize(280, 60), screen, &upward);
        QVERIFY(upward);
        QCOMPARE(r.bottom(), screen.bottom());  // clamped above the bottom panel
        QVERIFY(screen.contains(r));
    }

    void followsTheScreenOfTheIcon()
    {
        const QRect second(1920, 0, 1280, 1024);
        const QRect r = PanelPlacement::place(QRect(3180, 2, 22, 22), QSize(280, 280), second);
        QVERIFY(second.contains(r));
    }

    void centresTheSplash()
    {
        QCOMPARE(PanelPlacement::centre(QSize(440, 270), QRect(1920, 0, 1280, 1024)),
                 QRect(1920 + 420, 377, 440, 270));
    }
};

QTEST_GUILESS_MAIN(TestPanelPlacement)
#include "test_panel_placement.moc"
