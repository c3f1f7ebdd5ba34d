// The colour label well on the real X server: swatch clicks, gaps, closing, disabled
// wells, placement at the screen's edges and the dot's drawing.
#include "DesktopTools.h"
#include "LabelSwatches.h"
#include "LiveSettings.h"
#include "RWColorPickerView.h"
#include "RWColorWell.h"

#include <QScreen>
#include <QSignalSpy>
#include <QTest>

class TestColorWell : public QObject
{
    Q_OBJECT

private:
    QWidget *m_window = nullptr;
    RWColorWell *m_well = nullptr;

    void showAt(const QPoint &topLeft)
    {
        m_window->move(topLeft);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
    }
    RWColorPickerView *openPicker()
    {
        QTest::mouseClick(m_well, Qt::LeftButton, {}, m_well->rect().center());
        if (!m_well->picker() || !QTest::qWaitForWindowExposed(m_well->picker()))
            return nullptr;
        return m_well->picker();
    }
    QRect screenArea() const { return m_well->screen()->availableGeometry(); }

private slots:
    void init()
    {
        m_window = new QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint);
        m_window->resize(60, 30);
        m_well = new RWColorWell(m_window);
        m_well->setGeometry(30, 6, 20, 18);
        LiveSettings::shared().finderLabelIndex = QStringLiteral("0");
    }
    void cleanup()
    {
        delete m_window;
        m_window = nullptr;
    }

    void swatchesSetColourAndLabelIndex()
    {
        showAt({400, 400});
        const char *expected[] = {"0", "2", "1", "3", "6", "4", "5", "7"};
        QSignalSpy chosen(m_well, &RWColorWell::colorChosen);
        for (int column = LabelSwatches::kColumns - 1; column >= 0; --column) {
            RWColorPickerView *picker = openPicker();
            QVERIFY(picker);
            if (column == 0) {
                const QImage shown = picker->grab().toImage();
                DesktopTools::saveArtifact(QStringLiteral("color-well-picker.png"),
                                           shown.scaled(shown.size() * 4, Qt::IgnoreAspectRatio, Qt::FastTransformation));
            }
            QTest::mouseClick(picker, Qt::LeftButton, {}, LabelSwatches::swatchRect(column).center());
            QTRY_VERIFY_WITH_TIMEOUT(!m_well->isPickerOpen(), 2000);
            QCOMPARE(LiveSettings::shared().finderLabelIndex, QString::fromLatin1(expected[column]));
            QCOMPARE(m_well->color(), LabelSwatches::colour(column));
        }
        QCOMPARE(chosen.count(), LabelSwatches::kColumns);
        QCOMPARE(m_well->color().alpha(), 0);  // the last click chose "no label"
    }

    void clicksBetweenSwatchesKeepItOpen()
    {
        showAt({400, 400});
        RWColorPickerView *picker = openPicker();
        QVERIFY(picker);
        LiveSettings::shared().finderLabelIndex = QStringLiteral("4");
        const QRect red = LabelSwatches::swatchRect(1);
        const QPoint gap(red.right() + 1, red.center().y());
        const QPoint border(red.center().x(), red.top() - 1);
        const QPoint frame(2, 2);
        for (const QPoint &at : {gap, border, frame}) {
            QCOMPARE(LabelSwatches::columnAt(at), -1);
            QTest::mouseClick(picker, Qt::LeftButton, {}, at);
            QVERIFY(m_well->isPickerOpen());
        }
        QCOMPARE(LiveSettings::shared().finderLabelIndex, QStringLiteral("4"));
        QCOMPARE(m_well->color().alpha(), 0);

        // A real click on the well closes the picker and does not open it again.
        const QPoint wellCentre = m_well->mapToGlobal(m_well->rect().center());
        DesktopTools::clickAt(wellCentre);
        QTRY_VERIFY_WITH_TIMEOUT(!m_well->isPickerOpen(), 3000);
        QTest::qWait(300);
        QVERIFY(!m_well->isPickerOpen());
        // And the next click opens it again.
        DesktopTools::clickAt(wellCentre);
        QTRY_VERIFY_WITH_TIMEOUT(m_well->isPickerOpen(), 3000);
        QTest::mouseClick(m_well, Qt::LeftButton, {}, m_well->rect().center());
        QVERIFY(!m_well->isPickerOpen());
    }

    void disabledWellOpensNothingAndDrawsPaleDot()
    {
        showAt({400, 400});
        m_well->setColor(Qt::red);
        m_well->setEnabled(false);
        QTest::mouseClick(m_well, Qt::LeftButton, {}, m_well->rect().center());
        QVERIFY(!m_well->isPickerOpen());
        const QPoint dotCentre = m_well->dotRect().center().toPoint();
        QImage image = m_well->grab().toImage();
        QCOMPARE(qGray(image.pixel(dotCentre)), 230);

        m_well->setEnabled(true);
        image = m_well->grab().toImage();
        QCOMPARE(QColor(image.pixel(dotCentre)), QColor(Qt::red));
        // No label: an empty ring shows what lies behind.
        m_well->setColor(Qt::transparent);
        image = m_well->grab().toImage();
        const QColor behind = m_window->palette().color(QPalette::Window);
        QCOMPARE(QColor(image.pixel(dotCentre)), behind);
    }

    void pickerStaysOnScreenAtTheEdges()
    {
        m_window->show();
        const QRect area = screenArea();
        // Right edge, then bottom-right corner: the picker keeps inside the screen.
        for (const QPoint &topLeft : {QPoint(area.right() - m_window->width() + 1, area.top() + 200),
                                      QPoint(area.right() - m_window->width() + 1,
                                             area.bottom() - m_window->height() + 1)}) {
            showAt(topLeft);
            QTRY_COMPARE_WITH_TIMEOUT(m_window->frameGeometry().topLeft(), topLeft, 2000);
            RWColorPickerView *picker = openPicker();
            QVERIFY(picker);
            QVERIFY2(area.contains(picker->frameGeometry()),
                     qPrintable(QStringLiteral("%1,%2").arg(picker->x()).arg(picker->y())));
            QTest::mouseClick(m_well, Qt::LeftButton, {}, m_well->rect().center());
            QVERIFY(!m_well->isPickerOpen());
        }
    }
};

QTEST_MAIN(TestColorWell)
#include "test_color_well.moc"
