// The registry's bookkeeping and the ways a record invokes its target, on the real X11 back end.

#include "ZQHotKeyCenter.h"

#include <QGuiApplication>
#include <QTest>

namespace {

constexpr quint16 kKey1 = 18;  // "1"
constexpr quint16 kKey2 = 19;  // "2"
constexpr quint16 kKeyA = 0;   // "a"
constexpr quint64 kCommandShift = 0x120000;

class Receiver : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void hotkeyWithEvent(const HotKeyEvent &event) { events << event; }
    Q_INVOKABLE void hotkeyWithEvent(const HotKeyEvent &event, const QString &object)
    {
        events << event;
        objects << object;
    }
    Q_INVOKABLE void withVariant(const HotKeyEvent &event, const QVariant &object)
    {
        events << event;
        objects << object.toString();
    }
    Q_INVOKABLE void noArguments() { ++bare; }

    QList<HotKeyEvent> events;
    QStringList objects;
    int bare = 0;
};

ZQHotKeyCenter::HotKeyPtr recordFor(quint16 keyCode, quint64 flags)
{
    const auto found = ZQHotKeyCenter::sharedHotKeyCenter()->hotKeysMatching(
        [&](const ZQHotKey &hotKey) { return hotKey.keyCode() == keyCode && hotKey.modifierFlags() == flags; });
    return found.isEmpty() ? nullptr : found.first();
}

}  // namespace

class TestHotKeyCenter : public QObject
{
    Q_OBJECT
private slots:
    void init() { ZQHotKeyCenter::sharedHotKeyCenter()->unregisterAllHotKeys(); }
    void cleanupTestCase() { ZQHotKeyCenter::sharedHotKeyCenter()->unregisterAllHotKeys(); }

    void duplicatesAreRefusedAndIdsAreNeverReused()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        QCOMPARE(center, ZQHotKeyCenter::sharedHotKeyCenter());
        Receiver first, second;
        const quint32 start = center->nextHotKeyID();
        QVERIFY(start >= 1);

        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &first, "hotkeyWithEvent"));
        QCOMPARE(recordFor(kKey1, kCommandShift)->hotKeyID(), start);
        QVERIFY(!center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &second, "noArguments"));
        QVERIFY(!center->registerHotKeyWithKeyCode(kKey1, kCommandShift, [](const HotKeyEvent &) {}));
        QCOMPARE(recordFor(kKey1, kCommandShift)->target(), &first);
        // A key code without a key fails and consumes no id.
        QVERIFY(!center->registerHotKeyWithKeyCode(0x0A, kCommandShift, &first, "hotkeyWithEvent"));
        QCOMPARE(center->nextHotKeyID(), start + 1);

        QVERIFY(center->registerHotKeyWithKeyCode(kKey2, kCommandShift, &second, "hotkeyWithEvent"));
        QCOMPARE(recordFor(kKey2, kCommandShift)->hotKeyID(), start + 1);
        QCOMPARE(center->registeredHotKeys().size(), 2);

        // Unregistering and registering again gives a fresh id.
        center->unregisterHotKeyWithKeyCode(kKey1, kCommandShift);
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &first, "hotkeyWithEvent"));
        QCOMPARE(recordFor(kKey1, kCommandShift)->hotKeyID(), start + 2);
    }

    void lockAndFunctionBitsAreKeptButNotGrabbed()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        const quint64 withExtras = kCommandShift | 0x10000 | 0x800000;  // caps lock, function
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, withExtras, [](const HotKeyEvent &) {}));
        QVERIFY(center->hasRegisteredHotKeyWithKeyCode(kKey1, withExtras));
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(kKey1, kCommandShift));
        QCOMPARE(recordFor(kKey1, withExtras)->modifierFlags(), withExtras);
        // The plain flags name the same grab, which this process already holds.
        QVERIFY(!center->registerHotKeyWithKeyCode(kKey1, kCommandShift, [](const HotKeyEvent &) {}));
        center->unregisterHotKeyWithKeyCode(kKey1, withExtras);
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, [](const HotKeyEvent &) {}));
    }

    void unregisterVariants()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        Receiver a, b;
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &a, "hotkeyWithEvent"));
        QVERIFY(center->registerHotKeyWithKeyCode(kKey2, kCommandShift, &a, "noArguments"));
        QVERIFY(center->registerHotKeyWithKeyCode(kKeyA, kCommandShift, &b, "hotkeyWithEvent"));
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, 0x40000, &b, "noArguments"));

        // By key and flags, whoever registered it.
        center->unregisterHotKeyWithKeyCode(kKeyA, kCommandShift);
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(kKeyA, kCommandShift));
        QCOMPARE(center->registeredHotKeys().size(), 3);

        // By target and action: only that action of that target.
        center->unregisterHotKeysWithTarget(&a, "noArguments");
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(kKey2, kCommandShift));
        QVERIFY(center->hasRegisteredHotKeyWithKeyCode(kKey1, kCommandShift));
        QVERIFY(center->hasRegisteredHotKeyWithKeyCode(kKey1, 0x40000));

        // By target.
        center->unregisterHotKeysWithTarget(&a);
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(kKey1, kCommandShift));
        QVERIFY(center->hasRegisteredHotKeyWithKeyCode(kKey1, 0x40000));

        // An unregistered record is left alone by a second unregistration.
        const auto record = recordFor(kKey1, 0x40000);
        center->unregisterHotKey(record);
        QVERIFY(!record->hotKeyRef());
        center->unregisterHotKey(record);
        QVERIFY(center->registeredHotKeys().isEmpty());

        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &a, "hotkeyWithEvent"));
        QVERIFY(center->registerHotKeyWithKeyCode(kKey2, kCommandShift, [](const HotKeyEvent &) {}));
        center->unregisterAllHotKeys();
        QVERIFY(center->registeredHotKeys().isEmpty());
    }

    void invocationForms()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        Receiver receiver;
        HotKeyEvent event;
        event.keyCode = kKey1;
        event.modifierFlags = kCommandShift;
        event.timestamp = 1234;

        // Two-argument form wins over the one-argument overload; the object is converted.
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &receiver, "hotkeyWithEvent",
                                                  QStringLiteral("Silent Hotkey")));
        recordFor(kKey1, kCommandShift)->invokeWithEvent(event);
        QCOMPARE(receiver.objects, QStringList{QStringLiteral("Silent Hotkey")});
        QCOMPARE(receiver.events.size(), 1);
        QCOMPARE(receiver.events.first().timestamp, quint64(1234));
        QCOMPARE(receiver.events.first().type, HotKeyEvent::KeyUp);

        QVERIFY(center->registerHotKeyWithKeyCode(kKey2, kCommandShift, &receiver, "withVariant", 42));
        recordFor(kKey2, kCommandShift)->invokeWithEvent(event);
        QCOMPARE(receiver.objects.last(), QStringLiteral("42"));

        QVERIFY(center->registerHotKeyWithKeyCode(kKeyA, kCommandShift, &receiver, "noArguments"));
        recordFor(kKeyA, kCommandShift)->invokeWithEvent(event);
        QCOMPARE(receiver.bare, 1);

        // A task gets the event; a target without the action falls back to the task (none: nothing).
        int taskCalls = 0;
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, 0x40000, [&](const HotKeyEvent &e) {
            QCOMPARE(e.keyCode, kKey1);
            ++taskCalls;
        }));
        recordFor(kKey1, 0x40000)->invokeWithEvent(event);
        QCOMPARE(taskCalls, 1);
        QVERIFY(center->registerHotKeyWithKeyCode(kKey2, 0x40000, &receiver, "noSuchAction"));
        recordFor(kKey2, 0x40000)->invokeWithEvent(event);
        QCOMPARE(receiver.events.size(), 2);
        QCOMPARE(receiver.bare, 1);
    }

    void destroyedTargetIsNotCalled()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        auto *receiver = new Receiver;
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, receiver, "noArguments"));
        const auto record = recordFor(kKey1, kCommandShift);
        QVERIFY(record->description().contains(QStringLiteral("NSCommandKeyMask | NSShiftKeyMask")));
        delete receiver;
        record->invokeWithEvent(HotKeyEvent());
        QCOMPARE(record->target(), nullptr);
        QVERIFY(record->description().endsWith(QStringLiteral("invokes: (block))")));
    }
};

QTEST_MAIN(TestHotKeyCenter)
#include "tst_HotKeyCenter.moc"
