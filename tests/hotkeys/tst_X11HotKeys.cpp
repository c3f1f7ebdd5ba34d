// Global hot keys on the real X server: xdotool presses them, a second X client competes for them.

#include "DesktopTools.h"
#include "ZQHotKeyCenter.h"

#include <QApplication>
#include <QWidget>
#include <QProcess>
#include <QTest>
#include <memory>

namespace {

constexpr quint16 kKey1 = 18;  // "1"
constexpr quint16 kKey2 = 19;  // "2"
constexpr quint64 kCommandShift = 0x120000;
constexpr char kSuperShiftMask[] = "41";          // Mod4 | Shift
constexpr char kSuperShiftNumLockMask[] = "51";   // with Mod2 (NumLock on this server)

class Receiver : public QObject
{
    Q_OBJECT
public:
    Q_INVOKABLE void hotkeyWithEvent(const HotKeyEvent &event) { events << event; }
    QList<HotKeyEvent> events;
};

// The other client: holds a grab of keysym + X modifier mask until stop().
struct Holder {
    std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
    QByteArray answer;

    Holder(const char *keysymHex, const char *maskHex)
    {
        process->start(QStringLiteral(HOTKEY_HOLDER), {QString::fromLatin1(keysymHex), QString::fromLatin1(maskHex)});
        if (process->waitForStarted(3000) && process->waitForReadyRead(5000))
            answer = process->readLine().trimmed();
    }
    ~Holder() { stop(); }
    void stop()
    {
        if (process->state() == QProcess::NotRunning)
            return;
        process->closeWriteChannel();
        if (!process->waitForFinished(3000)) {
            process->kill();
            process->waitForFinished(1000);
        }
    }
};

QString grabOf(const char *mask, const char *keysymHex = "31" /* "1" */)
{
    Holder holder(keysymHex, mask);
    return QString::fromLatin1(holder.answer);
}

void xmodmap(const QString &expression)
{
    DesktopTools::run(QStringLiteral("xmodmap"), {QStringLiteral("-e"), expression});
}

bool numLockOn()
{
    return DesktopTools::run(QStringLiteral("xset"), {QStringLiteral("q")}).output.contains("Num Lock:    on");
}

QStringList g_messages;
void collectMessage(QtMsgType, const QMessageLogContext &, const QString &message)
{
    g_messages << message;
}

}  // namespace

class TestX11HotKeys : public QObject
{
    Q_OBJECT
private slots:
    void init() { ZQHotKeyCenter::sharedHotKeyCenter()->unregisterAllHotKeys(); }
    void cleanupTestCase() { ZQHotKeyCenter::sharedHotKeyCenter()->unregisterAllHotKeys(); }

    void firesOnceOnRelease()
    {
        Receiver receiver;
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kKey2, kCommandShift, &receiver,
                                                                                 "hotkeyWithEvent"));
        DesktopTools::key(QStringLiteral("super+shift+2"));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.events.size(), 1, 3000);
        QCOMPARE(receiver.events.first().keyCode, kKey2);
        QCOMPARE(receiver.events.first().modifierFlags, kCommandShift);
        QVERIFY(receiver.events.first().timestamp > 0);

        // Held past the keyboard's repeat delay: nothing while down, one call on release.
        DesktopTools::xdotool({QStringLiteral("keydown"), QStringLiteral("super+shift+2")});
        QTest::qWait(900);
        QCOMPARE(receiver.events.size(), 1);
        DesktopTools::xdotool({QStringLiteral("keyup"), QStringLiteral("super+shift+2")});
        QTRY_COMPARE_WITH_TIMEOUT(receiver.events.size(), 2, 3000);

        // Other combinations of the same key are not ours.
        DesktopTools::key(QStringLiteral("super+2"));
        DesktopTools::key(QStringLiteral("super+shift+1"));
        QTest::qWait(200);
        QCOMPARE(receiver.events.size(), 2);
    }

    void firesWithNumLockOn()
    {
        Receiver receiver;
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kKey2, kCommandShift, &receiver,
                                                                                 "hotkeyWithEvent"));
        QVERIFY(!numLockOn());
        DesktopTools::key(QStringLiteral("Num_Lock"));
        auto restore = qScopeGuard([] {
            if (numLockOn())
                DesktopTools::key(QStringLiteral("Num_Lock"));
        });
        QTRY_VERIFY_WITH_TIMEOUT(numLockOn(), 3000);
        DesktopTools::key(QStringLiteral("super+shift+2"));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.events.size(), 1, 3000);
        QTest::qWait(150);
        QCOMPARE(receiver.events.size(), 1);
        restore.dismiss();
        DesktopTools::key(QStringLiteral("Num_Lock"));
        QTRY_VERIFY_WITH_TIMEOUT(!numLockOn(), 3000);
    }

    void combinationHeldElsewhereIsRefusedQuietly()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        Receiver receiver;
        Holder other("31", kSuperShiftMask);
        QCOMPARE(other.answer, QByteArray("grabbed"));

        g_messages.clear();
        const QtMessageHandler previous = qInstallMessageHandler(collectMessage);
        const quint32 next = center->nextHotKeyID();
        const bool registered = center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &receiver, "hotkeyWithEvent");
        QTest::qWait(200);  // any error reaching Qt's event queue would be logged by now
        qInstallMessageHandler(previous);
        QVERIFY(!registered);
        QVERIFY2(g_messages.isEmpty(), qPrintable(g_messages.join(QLatin1Char('\n'))));
        QCOMPARE(center->nextHotKeyID(), next);
        QVERIFY(!center->hasRegisteredHotKeyWithKeyCode(kKey1, kCommandShift));
        // The variants granted before the refusal were given back.
        QCOMPARE(grabOf(kSuperShiftNumLockMask), QStringLiteral("grabbed"));

        // Once the other client lets go, the same registration succeeds with the next id.
        other.stop();
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &receiver, "hotkeyWithEvent"));
        QCOMPARE(center->registeredHotKeys().first()->hotKeyID(), next);
    }

    void unregisteringReleasesTheGrabs()
    {
        ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
        Receiver receiver;
        QVERIFY(center->registerHotKeyWithKeyCode(kKey1, kCommandShift, &receiver, "hotkeyWithEvent"));
        QCOMPARE(grabOf(kSuperShiftMask), QStringLiteral("refused"));
        QCOMPARE(grabOf(kSuperShiftNumLockMask), QStringLiteral("refused"));
        center->unregisterHotKeyWithKeyCode(kKey1, kCommandShift);
        QCOMPARE(grabOf(kSuperShiftMask), QStringLiteral("grabbed"));
        QCOMPARE(grabOf(kSuperShiftNumLockMask), QStringLiteral("grabbed"));
        DesktopTools::key(QStringLiteral("super+shift+1"));
        QTest::qWait(150);
        QVERIFY(receiver.events.isEmpty());
    }

    void firesWhileOwnPopupHoldsTheKeyboard()
    {
        Receiver receiver;
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kKey2, kCommandShift, &receiver,
                                                                                 "hotkeyWithEvent"));
        QWidget popup(nullptr, Qt::Popup);
        popup.setGeometry(100, 100, 200, 100);
        popup.show();
        QVERIFY(QTest::qWaitForWindowExposed(&popup));
        QTRY_VERIFY_WITH_TIMEOUT(QWidget::keyboardGrabber() == &popup || QApplication::activePopupWidget() == &popup, 3000);
        QTest::qWait(200);  // let the popup's keyboard grab reach the server
        DesktopTools::key(QStringLiteral("super+shift+2"));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.events.size(), 1, 3000);
        QVERIFY(popup.isVisible());
        DesktopTools::saveArtifact(QStringLiteral("hotkeys-popup-open.png"), DesktopTools::grabScreen());
    }

    void followsTheKeyWhenTheMappingChanges()
    {
        Receiver receiver;
        QVERIFY(ZQHotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kKey2, kCommandShift, &receiver,
                                                                                 "hotkeyWithEvent"));
        // "2" moves from its key (11 on this server) to the next one.
        xmodmap(QStringLiteral("keycode 11 = 3 numbersign"));
        xmodmap(QStringLiteral("keycode 12 = 2 at"));
        auto restore = qScopeGuard([] {
            xmodmap(QStringLiteral("keycode 11 = 2 at"));
            xmodmap(QStringLiteral("keycode 12 = 3 numbersign"));
        });
        QTRY_COMPARE_WITH_TIMEOUT(grabOf(kSuperShiftMask, "32"), QStringLiteral("refused"), 3000);
        QCOMPARE(grabOf(kSuperShiftMask, "33"), QStringLiteral("grabbed"));  // the old key is free
        DesktopTools::key(QStringLiteral("super+shift+2"));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.events.size(), 1, 3000);
    }
};

QTEST_MAIN(TestX11HotKeys)
#include "tst_X11HotKeys.moc"
