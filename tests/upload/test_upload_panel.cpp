// The upload panel on a real X server: placement under (or above) the tray icon, the
// uploading / copied / error states driven by notifications, the fades with their
// "uploadStarted" / "uploadEnded" notifications, Escape and focus loss; and the bar.

#include "NotificationCenter.h"
#include "TXProgressBar.h"
#include "Texts.h"
#include "UploadPanel.h"
#include "UploadProgress.h"
#include "UploadView.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QScreen>
#include <QTest>

namespace {
QColor textColour(QLabel *label) { return label->palette().color(QPalette::WindowText); }
const QColor kDim = QColor::fromRgbF(0.706f, 0.706f, 0.706f);
}  // namespace

class UploadPanelTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void uploadRoundTrip();
    void escapeAndFocusLossClose();
    void opensAboveBottomTray();
    void progressBarStrip();

private:
    void save(QWidget *w, const QString &name);
    QRect m_icon;
    QObject m_observer;
    QStringList m_notes;
};

void UploadPanelTest::initTestCase()
{
    for (const QString &name : {Notifications::UploadStarted, Notifications::UploadEnded})
        NotificationCenter::defaultCenter().addObserver(name, &m_observer, [this](const QString &n) { m_notes << n; });
}

void UploadPanelTest::save(QWidget *w, const QString &name)
{
    const QString folder = qEnvironmentVariable("QUILLO_TEST_ARTIFACTS");
    if (!folder.isEmpty() && QDir().mkpath(folder))
        QVERIFY(w->grab().save(folder + u'/' + name));
}

void UploadPanelTest::uploadRoundTrip()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    m_icon = QRect(screen.right() - 400, screen.top() + 1, 22, 22);
    UploadPanel panel([this] { return m_icon; });
    m_notes.clear();

    NotificationCenter::defaultCenter().post(Notifications::UploadBegins);
    panel.setHasActivePanel(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes, QStringList{Notifications::UploadStarted}, 3000);
    QWidget *w = panel.window();
    QVERIFY(w->isVisible());
    QCOMPARE(w->windowOpacity(), 1.0);
    QCOMPARE(w->size(), QSize(280, 60));
    QCOMPARE(w->x(), int(std::lround(m_icon.center().x() + 0.5 - 140)));  // centred under the icon
    QCOMPARE(w->y(), m_icon.bottom() + 1);
    QVERIFY(!panel.opensUpward());
    QCOMPARE(panel.uploadLabel()->text(), Texts::UploadingQuillo);
    QCOMPARE(textColour(panel.uploadLabel()), kDim);
    QVERIFY(panel.progressIndicator()->isVisible() && panel.progressBounds()->isVisible());
    QVERIFY(!panel.copiedLabel()->isVisible());
    QVERIFY(panel.progressIndicator()->isRedrawTimerActive());

    uploadPercent().store(1.0);
    NotificationCenter::defaultCenter().post(Notifications::UploadProgress);
    QCOMPARE(panel.progressIndicator()->doubleValue(), 0.0);
    uploadPercent().store(42.5);
    NotificationCenter::defaultCenter().post(Notifications::UploadProgress);
    QCOMPARE(panel.progressIndicator()->doubleValue(), 42.5);
    save(w, QStringLiteral("upload-panel-uploading.png"));

    NotificationCenter::defaultCenter().post(Notifications::UploadSucceeded);
    QCOMPARE(panel.copiedLabel()->text(), Texts::URLCopied);
    QCOMPARE(textColour(panel.copiedLabel()), QColor(Qt::white));
    QVERIFY(panel.copiedLabel()->isVisible());
    QVERIFY(!panel.uploadLabel()->isVisible() && !panel.progressIndicator()->isVisible()
            && !panel.progressBounds()->isVisible());
    QVERIFY(!panel.progressIndicator()->isRedrawTimerActive());  // hidden: no redraws
    save(w, QStringLiteral("upload-panel-copied.png"));

    panel.setHasActivePanel(true);  // already open: nothing happens
    panel.setHasActivePanel(false);
    QTRY_VERIFY_WITH_TIMEOUT(!w->isVisible(), 3000);
    QCOMPARE(m_notes, QStringList({Notifications::UploadStarted, Notifications::UploadEnded}));
    panel.setHasActivePanel(false);  // already closed
    QTest::qWait(400);
    QCOMPARE(m_notes.size(), 2);

    // The next upload starts from the uploading state again; a failure shows the error.
    NotificationCenter::defaultCenter().post(Notifications::UploadBegins);
    QVERIFY(panel.uploadLabel()->isVisibleTo(w) && !panel.copiedLabel()->isVisibleTo(w));
    QCOMPARE(panel.progressIndicator()->doubleValue(), 0.0);
    NotificationCenter::defaultCenter().post(Notifications::UploadFailed);
    QCOMPARE(panel.copiedLabel()->text(), Texts::ErrorUploading);
    QCOMPARE(textColour(panel.copiedLabel()), kDim);
    panel.setHasActivePanel(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 3, 3000);
    save(w, QStringLiteral("upload-panel-error.png"));
    panel.setHasActivePanel(false);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 4, 3000);
}

void UploadPanelTest::escapeAndFocusLossClose()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    m_icon = QRect(screen.right() - 10, screen.top() + 1, 22, 22);  // at the edge: clamped
    UploadPanel panel([this] { return m_icon; });
    m_notes.clear();
    panel.setHasActivePanel(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 1, 3000);
    QWidget *w = panel.window();
    QVERIFY(screen.contains(w->geometry()));
    QCOMPARE(w->geometry().right(), screen.right());

    // Losing focus to another window closes it.
    QTRY_VERIFY_WITH_TIMEOUT(w->isActiveWindow(), 3000);
    QWidget other;
    other.setGeometry(100, 300, 200, 100);
    other.show();
    other.activateWindow();
    QTRY_VERIFY_WITH_TIMEOUT(!panel.hasActivePanel(), 3000);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 2, 3000);
    QVERIFY(!w->isVisible());

    // So does Escape.
    panel.setHasActivePanel(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 3, 3000);
    QTest::keyClick(w, Qt::Key_Escape);
    QVERIFY(!panel.hasActivePanel());
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 4, 3000);
    QVERIFY(!w->isVisible());
}

void UploadPanelTest::opensAboveBottomTray()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    m_icon = QRect(screen.center().x(), screen.bottom() - 23, 22, 22);
    UploadPanel panel([this] { return m_icon; });
    m_notes.clear();
    panel.setHasActivePanel(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 1, 3000);
    QWidget *w = panel.window();
    QVERIFY(panel.opensUpward());
    QCOMPARE(w->geometry().bottom(), m_icon.top() - 1);
    // Round corners face away from the tray: the clear strip is on top.
    const QPainterPath shape = panel.backgroundView()->shape();
    QVERIFY(!shape.contains(QPointF(140, 5)) && shape.contains(QPointF(140, 55)));
    QVERIFY(shape.contains(QPointF(0.5, 59.5)));   // square bottom corner
    QVERIFY(!shape.contains(QPointF(2, 12)));  // rounded top corner
    save(w, QStringLiteral("upload-panel-upward.png"));
    panel.setHasActivePanel(false);
    QTRY_COMPARE_WITH_TIMEOUT(m_notes.size(), 2, 3000);
}

void UploadPanelTest::progressBarStrip()
{
    TXProgressBar bar;
    bar.setRange(0, 100);
    bar.resize(200, 2);
    QVERIFY(bar.stripRect().isEmpty());  // 0 draws nothing
    bar.setDoubleValue(50.0);
    QCOMPARE(bar.stripRect(), QRectF(0, 0, 100, 2));
    bar.setDoubleValue(150.0);
    QCOMPARE(bar.stripRect().width(), 300.0);  // not clamped
    bar.setRange(20, 120);
    bar.setDoubleValue(50.0);
    QCOMPARE(bar.stripRect().width(), 100.0);  // the minimum is not subtracted
    bar.setRange(0, 100);

    bar.setDoubleValue(10.0);
    bar.startAnimation();
    QVERIFY(!bar.isRedrawTimerActive());  // not shown yet
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QVERIFY(bar.isRedrawTimerActive());
    const double before = bar.progressOffset();
    QTRY_VERIFY_WITH_TIMEOUT(bar.progressOffset() > before + 2, 2000);
    bar.setDoubleValue(100.0);
    QVERIFY(!bar.isRedrawTimerActive());  // at the maximum
    bar.setDoubleValue(60.0);
    QVERIFY(bar.isRedrawTimerActive());
    bar.hide();
    QVERIFY(!bar.isRedrawTimerActive());

    QImage image(200, 2, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    bar.setDoubleValue(50.0);
    bar.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(image.pixelColor(50, 1), TXProgressBar::barColour());
    QCOMPARE(image.pixelColor(150, 1).alpha(), 0);
}

QTEST_MAIN(UploadPanelTest)
#include "test_upload_panel.moc"
