// Outside an X11 session the center's back end refuses every combination, and nothing breaks.

#include "HotKeyGrabber.h"
#include "Platform.h"
#include "ZQHotKeyCenter.h"

#include <QGuiApplication>
#include <QTest>

class TestNullHotKeys : public QObject
{
    Q_OBJECT
private slots:
    void platformPicksTheNullBackEnd()
    {
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
        std::unique_ptr<HotKeyGrabber> grabber = Platform::createHotKeyGrabber();
        QVERIFY(grabber);
        QVERIFY(!grabber->grab(1, '1', HotKeyGrabber::Super | HotKeyGrabber::Shift));
        grabber->ungrab(1);
    }

    void everyRegistrationIsRefused()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        QObject target;
        const quint32 start = center->nextHotKeyID();
        QVERIFY(!center->registerHotKeyWithKeyCode(19, 0x120000, &target, "hotkeyWithEvent"));
        QVERIFY(!center->registerHotKeyWithKeyCode(18, 0x120000, &target, "hotkeyWithEventObject",
                                                   QStringLiteral("Silent Hotkey")));
        QVERIFY(!center->registerHotKeyWithKeyCode(0, 0, [](const HotKeyEvent &) {}));
        QCOMPARE(center->nextHotKeyID(), start);
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(19, 0x120000));
        QVERIFY(center->registeredHotKeys().isEmpty());
        center->unregisterHotKeyWithKeyCode(19, 0x120000);
        center->unregisterHotKeysWithTarget(&target);
        center->unregisterAllHotKeys();
    }
};

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    TestNullHotKeys test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_NullHotKeys.moc"
