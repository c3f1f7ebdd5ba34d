// The grabber on the real X server of the test desktop: a full-screen capture reproduces a
// known window pixel for pixel, a dragged selection captures exactly its rectangle, a picked
// window comes out at its framed size (with -o) or on a shadow margin, and Escape cancels.
#include "GrabberProcess.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace {

// A window that shows a fixed, unmistakable pattern: seeded noise in blocks.
class PatternWindow : public QWidget
{
public:
    PatternWindow()
        : m_pattern(420, 300, QImage::Format_RGB32)
    {
        QRandomGenerator random(42);
        for (int y = 0; y < m_pattern.height(); ++y) {
            for (int x = 0; x < m_pattern.width(); ++x)
                m_pattern.setPixel(x, y, 0xff000000 | random.generate());
        }
        setFixedSize(m_pattern.size());
        setWindowTitle(QStringLiteral("grabber pattern"));
    }
    const QImage &pattern() const { return m_pattern; }
    int exposes = 0; // Qt answers an expose by flushing its backing store, without painting

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, m_pattern); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Expose)
            ++exposes;
        return false;
    }
    void showEvent(QShowEvent *) override { windowHandle()->installEventFilter(this); }

private:
    QImage m_pattern;
};

bool xdotool(const QStringList &arguments)
{
    QProcess p;
    p.start(QStringLiteral("xdotool"), arguments);
    return p.waitForFinished(5000) && p.exitCode() == 0;
}

// The overlay names its window once it holds the keyboard and pointer.
bool waitForOverlay(QProcess &grabber)
{
    if (!grabber.waitForStarted(5000))
        return false;
    for (int i = 0; i < 100; ++i) {
        if (grabber.state() != QProcess::Running)
            return false;
        QProcess search;
        search.start(QStringLiteral("xdotool"),
                     {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
                      QStringLiteral("^quillo-screencapture overlay$")});
        if (search.waitForFinished(3000) && !search.readAllStandardOutput().trimmed().isEmpty())
            return true;
        QTest::qWait(50);
    }
    return false;
}

int finish(QProcess &grabber)
{
    if (!grabber.waitForFinished(10000)) {
        grabber.kill();
        grabber.waitForFinished(2000);
        return -1;
    }
    return grabber.exitStatus() == QProcess::NormalExit ? grabber.exitCode() : -1;
}

void saveArtifact(const QImage &image, const QString &name)
{
    const QString folder = qEnvironmentVariable("QUILLO_TEST_ARTIFACTS");
    if (!folder.isEmpty())
        image.save(QDir(folder).filePath(name));
}

} // namespace

class TestGrabberX11 : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void fullScreenReproducesTheWindow();
    void dragCapturesExactlyTheRectangle();
    void cancelLeavesNoFile_data();
    void cancelLeavesNoFile();
    void windowPickHasTheFramedSize();
    void screenIsTheMonitorUnderThePointer();

private:
    // Without a compositor the pattern is gone once the overlay covered it, until we repaint.
    void waitForRepaintSince(int exposes) { QTRY_VERIFY_WITH_TIMEOUT(m_window.exposes > exposes, 3000); }

    QTemporaryDir m_dir;
    PatternWindow m_window;
    QPoint m_origin; // the pattern's top-left on the screen
};

void TestGrabberX11::initTestCase()
{
    m_window.move(200, 150);
    m_window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_window));
    // The window manager's frame arrives shortly after mapping.
    QTRY_VERIFY_WITH_TIMEOUT(m_window.frameGeometry() != m_window.geometry(), 8000);
    QTest::qWait(200);
    m_origin = m_window.mapToGlobal(QPoint(0, 0));
    xdotool({QStringLiteral("mousemove"), QStringLiteral("5"), QStringLiteral("900")});
}

void TestGrabberX11::fullScreenReproducesTheWindow()
{
    const QString file = m_dir.filePath(QStringLiteral("screen.png"));
    QCOMPARE(runGrabber({QStringLiteral("-tpng"), file}).exitCode, 0);
    const QImage screen(file);
    saveArtifact(screen, QStringLiteral("grabber-fullscreen.png"));
    QCOMPARE(screen.size(), QSize(1920, 1080));
    const QImage shown = screen.copy(QRect(m_origin, m_window.size())).convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown, m_window.pattern());
}

void TestGrabberX11::dragCapturesExactlyTheRectangle()
{
    const QString file = m_dir.filePath(QStringLiteral("selection.png"));
    const int exposes = m_window.exposes;
    QProcess grabber;
    grabber.start(grabberPath(), {QStringLiteral("-i"), QStringLiteral("-tpng"), file});
    QVERIFY(waitForOverlay(grabber));
    const QPoint from = m_origin + QPoint(30, 40), to = m_origin + QPoint(230, 190);
    QVERIFY(xdotool({QStringLiteral("mousemove"), QString::number(from.x()), QString::number(from.y()),
                     QStringLiteral("mousedown"), QStringLiteral("1"),
                     QStringLiteral("mousemove"), QString::number(from.x() + 50), QString::number(from.y() + 20),
                     QStringLiteral("mousemove"), QString::number(to.x()), QString::number(to.y()),
                     QStringLiteral("mouseup"), QStringLiteral("1")}));
    QCOMPARE(finish(grabber), 0);
    waitForRepaintSince(exposes);
    const QImage selection = QImage(file).convertToFormat(QImage::Format_RGB32);
    saveArtifact(selection, QStringLiteral("grabber-selection.png"));
    QCOMPARE(selection.size(), QSize(200, 150));
    QCOMPARE(selection, m_window.pattern().copy(30, 40, 200, 150));
}

void TestGrabberX11::cancelLeavesNoFile_data()
{
    QTest::addColumn<QStringList>("input");
    QTest::newRow("Escape") << QStringList{QStringLiteral("key"), QStringLiteral("Escape")};
    QTest::newRow("right click") << QStringList{QStringLiteral("mousemove"), QStringLiteral("600"),
                                                QStringLiteral("500"), QStringLiteral("click"), QStringLiteral("3")};
}

void TestGrabberX11::cancelLeavesNoFile()
{
    QFETCH(QStringList, input);
    const QString file = m_dir.filePath(QStringLiteral("cancelled.png"));
    const int exposes = m_window.exposes;
    QProcess grabber;
    grabber.start(grabberPath(), {QStringLiteral("-i"), QStringLiteral("-tpng"), file});
    QVERIFY(waitForOverlay(grabber));
    QVERIFY(xdotool(input));
    QCOMPARE(finish(grabber), 1);
    waitForRepaintSince(exposes);
    QVERIFY(!QFile::exists(file));
    QCOMPARE(QDir(m_dir.path()).entryList({QStringLiteral("cancelled*")}, QDir::Files).size(), 0);
}

void TestGrabberX11::windowPickHasTheFramedSize()
{
    const QRect frame = m_window.frameGeometry();
    const QPoint inside = m_origin + QPoint(100, 100);
    // -w -o, -w, and -i -o switched to window picking with Space.
    for (const int run : {0, 1, 2}) {
        const bool shadow = run == 1, space = run == 2;
        const QString file = m_dir.filePath(QStringLiteral("window%1.png").arg(run));
        QStringList arguments{space ? QStringLiteral("-i") : QStringLiteral("-w"), QStringLiteral("-tpng"), file};
        if (!shadow)
            arguments.insert(1, QStringLiteral("-o"));
        const int exposes = m_window.exposes;
        QProcess grabber;
        grabber.start(grabberPath(), arguments);
        QVERIFY(waitForOverlay(grabber));
        if (space)
            QVERIFY(xdotool({QStringLiteral("key"), QStringLiteral("space")}));
        QVERIFY(xdotool({QStringLiteral("mousemove"), QString::number(inside.x()), QString::number(inside.y()),
                         QStringLiteral("click"), QStringLiteral("1")}));
        QCOMPARE(finish(grabber), 0);
        waitForRepaintSince(exposes);
        const QImage image(file);
        saveArtifact(image, QFileInfo(file).fileName().prepend(QStringLiteral("grabber-")));
        if (!shadow) {
            QCOMPARE(image.size(), frame.size());
            const QPoint offset = m_origin - frame.topLeft();
            QCOMPARE(image.copy(QRect(offset, m_window.size())).convertToFormat(QImage::Format_RGB32),
                     m_window.pattern());
        } else {
            QVERIFY(image.hasAlphaChannel());
            QVERIFY(image.width() > frame.width() && image.height() > frame.height());
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0);                                  // clear margin
            const QRect window = image.rect().adjusted(1, 1, -1, -1) & QRect(QPoint(0, 0), frame.size()).translated(
                (image.width() - frame.width()) / 2, 0);
            for (const QPoint &p : {window.center(), QPoint(window.center().x(), window.top() + 30)})
                QVERIFY(qAlpha(image.pixel(p)) == 255); // the window, its frame too, is opaque
            QVERIFY(qAlpha(image.pixel(image.width() / 2, image.height() - 12)) > 0); // shadow below
        }
    }
}

void TestGrabberX11::screenIsTheMonitorUnderThePointer()
{
    // Two RandR monitors side by side on the one X screen.
    auto xrandr = [](const QStringList &arguments) {
        QProcess p;
        p.start(QStringLiteral("xrandr"), arguments);
        return p.waitForFinished(5000) && p.exitCode() == 0;
    };
    QVERIFY(xrandr({QStringLiteral("--setmonitor"), QStringLiteral("left"), QStringLiteral("960/254x1080/286+0+0"),
                    QStringLiteral("none")}));
    QVERIFY(xrandr({QStringLiteral("--setmonitor"), QStringLiteral("right"),
                    QStringLiteral("960/254x1080/286+960+0"), QStringLiteral("none")}));
    const QString file = m_dir.filePath(QStringLiteral("right.png"));
    xdotool({QStringLiteral("mousemove"), QStringLiteral("1500"), QStringLiteral("700")});
    const int exitCode = runGrabber({QStringLiteral("-tpng"), file}).exitCode;
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("left")});
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("right")});
    QCOMPARE(exitCode, 0);
    const QImage right(file);
    QCOMPARE(right.size(), QSize(960, 1080));
    const QImage whole(m_dir.filePath(QStringLiteral("screen.png")));
    QCOMPARE(right.convertToFormat(QImage::Format_RGB32),
             whole.copy(960, 0, 960, 1080).convertToFormat(QImage::Format_RGB32));
}

QTEST_MAIN(TestGrabberX11)
#include "test_grabber_x11.moc"
