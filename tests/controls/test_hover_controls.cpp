// Hover semantics of the panel's buttons and pop-ups, the pop-ups' lists and the
// colouring helpers, on real widgets in an active window.
#include "HoverButton.h"
#include "HoverPopUp.h"
#include "Settings.h"
#include "Theme.h"
#include "VYTextField.h"

#include "DesktopTools.h"

#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QScreen>
#include <QStringListModel>
#include <QTest>

class TestHoverControls : public QObject
{
    Q_OBJECT

private:
    QWidget *m_window = nullptr;
    QWidget *m_away = nullptr;  // an empty spot of the window

    template <typename T> T *add(const QRect &geometry)
    {
        auto *widget = new T(m_window);
        widget->setGeometry(geometry);
        widget->show();
        return widget;
    }
    // Each move waits until the widget has seen the pointer come or go.
    void hover(QWidget *widget)
    {
        QTest::mouseMove(widget, widget->rect().center());
        QTRY_VERIFY_WITH_TIMEOUT(widget->underMouse(), 3000);
    }
    void leave(QWidget *widget)
    {
        QTest::mouseMove(m_away, m_away->rect().center());
        QTRY_VERIFY_WITH_TIMEOUT(!widget->underMouse(), 3000);
    }

private slots:
    void init()
    {
        m_window = new QWidget;
        m_window->resize(400, 200);
        m_away = new QWidget(m_window);
        m_away->setGeometry(350, 150, 40, 40);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
    }
    void cleanup()
    {
        delete m_window;
        m_window = nullptr;
    }

    void fadingButtons()
    {
        auto *button = add<HoverButton>({10, 10, 60, 30});
        button->setAlphaValue(0.65);
        hover(button);
        QTRY_COMPARE_WITH_TIMEOUT(button->alphaValue(), 1.0, 2000);
        leave(button);
        QTRY_COMPARE_WITH_TIMEOUT(button->alphaValue(), 0.65, 2000);
        button->setAlphaValue(100.0);  // "fully opaque"
        QCOMPARE(button->alphaValue(), 1.0);

        auto *popUp = add<HoverPopUp>({80, 10, 70, 26});
        popUp->addItems({"jpg", "png"});
        hover(popUp);
        QTRY_COMPARE_WITH_TIMEOUT(popUp->alphaValue(), 1.0, 2000);
        leave(popUp);
        QTRY_COMPARE_WITH_TIMEOUT(popUp->alphaValue(), 0.65, 2000);

        // The preferences pop-up is inverted.
        auto *prefs = add<HoverPopUpPrefs>({160, 10, 36, 28});
        hover(prefs);
        QTRY_COMPARE_WITH_TIMEOUT(prefs->alphaValue(), 0.75, 2000);
        leave(prefs);
        QTRY_COMPARE_WITH_TIMEOUT(prefs->alphaValue(), 1.0, 2000);
    }

    void hiddenClearButtonStaysHidden()
    {
        auto *hidden = add<HoverButtonX>({10, 10, 18, 18});
        auto *shown = add<HoverButtonX>({40, 10, 18, 18});
        hidden->setAlphaValue(0.0);
        shown->setAlphaValue(0.4);
        hover(hidden);
                QCOMPARE(hidden->alphaValue(), 0.0);
        leave(hidden);
                QCOMPARE(hidden->alphaValue(), 0.0);
        hover(shown);
        QTRY_COMPARE_WITH_TIMEOUT(shown->alphaValue(), 1.0, 2000);
        leave(shown);
        QTRY_COMPARE_WITH_TIMEOUT(shown->alphaValue(), 0.65, 2000);
    }

    void editButtonFollowsSetting()
    {
        auto *edit = add<HoverButtonEdit>({10, 10, 18, 18});
        Settings::setValue(Key::ToggleEdit, false);
        hover(edit);
                QCOMPARE(edit->imageName(), QStringLiteral("edit_off"));
        leave(edit);

        Settings::setValue(Key::ToggleEdit, true);
        hover(edit);
        QTRY_COMPARE_WITH_TIMEOUT(edit->imageName(), QStringLiteral("edit"), 2000);
        leave(edit);
        QTRY_COMPARE_WITH_TIMEOUT(edit->imageName(), QStringLiteral("edit_off"), 2000);
    }

    void matrixButtonsKeepTheChosenPlate()
    {
        auto *idle = add<HoverButtonMatrix>({10, 10, 80, 52});
        hover(idle);  // no image yet counts as "any other image"
        QTRY_COMPARE_WITH_TIMEOUT(idle->imageName(), QStringLiteral("butt1"), 2000);
        leave(idle);
        QTRY_COMPARE_WITH_TIMEOUT(idle->imageName(), QStringLiteral("butt0"), 2000);

        for (const QString &chosen : {QStringLiteral("butt2"), QStringLiteral("butt3")}) {
            auto *button = add<HoverButtonMatrix>({100, 10, 80, 52});
            button->setImageName(chosen);
            hover(button);
                        QCOMPARE(button->imageName(), chosen);
            leave(button);
                        QCOMPARE(button->imageName(), chosen);
            delete button;
        }
    }

    void noHoverWhileWindowInactive()
    {
        auto *button = add<HoverButton>({10, 10, 60, 30});
        auto *matrix = add<HoverButtonMatrix>({80, 10, 80, 52});
        button->setAlphaValue(0.65);
        matrix->setImageName(QStringLiteral("butt0"));
        QWidget other;
        other.setGeometry(m_window->geometry().translated(0, 260));
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!m_window->isActiveWindow());

        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), button->mapToGlobal(QPointF(5, 5)));
        QApplication::sendEvent(button, &enter);
        QApplication::sendEvent(matrix, &enter);
        QCOMPARE(button->alphaValue(), 0.65);
        QCOMPARE(matrix->imageName(), QStringLiteral("butt0"));
    }

    void pullDownHidesItsTitleItemAndShowsItemColours()
    {
        auto *prefs = add<HoverPopUpPrefs>({300, 10, 36, 28});
        prefs->addItems({QString(), "Set Save Path", "Set Output App", "Help"});
        Theme::colorMenuItem(prefs, 1, true);   // light grey
        Theme::colorMenuItem(prefs, 2, false);  // dark text
        Theme::colorMenuItem(prefs, 9, true);   // no such item: nothing happens
        prefs->showPopup();
        QListView *list = qobject_cast<QListView *>(prefs->view());
        QVERIFY(list);
        QTRY_VERIFY_WITH_TIMEOUT(list->isVisible(), 2000);
        QVERIFY(list->isRowHidden(0));
        QVERIFY(!list->isRowHidden(1));
        QVERIFY(list->uniformItemSizes());

        // The open list hangs under the gear and lies on the screen.
        const QRect frame = list->window()->geometry();
        QVERIFY(frame.top() >= prefs->mapToGlobal(QPoint(0, prefs->height())).y() - 1);
        QVERIFY(prefs->screen()->availableGeometry().contains(frame));

        // Each row shows its own colour: the darkest text pixel of row 1 is light grey,
        // that of row 2 dark.
        QVERIFY(QTest::qWaitForWindowExposed(list->window()));
        const QImage shot = list->viewport()->grab().toImage();
        auto darkest = [&](int row) {
            const QRect r = list->visualRect(prefs->model()->index(row, 0));
            int low = 255;
            for (int y = r.top(); y <= r.bottom(); ++y)
                for (int x = r.left(); x <= r.right(); ++x)
                    low = std::min(low, qGray(shot.pixel(x, y)));
            return low;
        };
        QVERIFY2(darkest(1) >= 130, qPrintable(QString::number(darkest(1))));
        QVERIFY2(darkest(2) <= 80, qPrintable(QString::number(darkest(2))));
        QCOMPARE(prefs->itemData(2, Qt::FontRole).value<QFont>().pointSizeF(), 11.0);
        prefs->hidePopup();
    }

    void popUpOffersEveryItemAndIgnoresTheWheel()
    {
        auto *popUp = add<HoverPopUp>({10, 10, 70, 26});
        auto *model = new QStringListModel(popUp);
        QStringList rows;
        for (int i = 0; i < 30000; ++i)
            rows << QStringLiteral("item %1").arg(i);
        model->setStringList(rows);
        popUp->setModel(model);
        popUp->setCurrentIndex(1);
        QWheelEvent wheel(QPointF(5, 5), popUp->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(popUp, &wheel);
        QCOMPARE(popUp->currentIndex(), 1);

        popUp->showPopup();
        QListView *list = qobject_cast<QListView *>(popUp->view());
        QTRY_VERIFY_WITH_TIMEOUT(list->isVisible(), 5000);
        QVERIFY(!list->isRowHidden(0));
        QVERIFY(list->uniformItemSizes());
        popUp->hidePopup();
    }

    void buttonTitleColours()
    {
        auto *button = add<HoverButtonMatrix>({10, 10, 80, 52});
        QFont font = button->font();
        font.setPointSize(13);
        button->setFont(font);
        Theme::colorButtonTitle(button, true, false);
        QCOMPARE(button->titleColor(), Theme::darkText());
        Theme::colorButtonTitle(button, true, true);
        QCOMPARE(button->titleColor(), Theme::nearWhite());
        Theme::colorButtonTitle(button, false, true);
        QCOMPARE(button->titleColor(), Theme::midGrey());
        QCOMPARE(button->font().pointSize(), 13);
        Theme::colorButtonTitle(nullptr, true, true);  // nothing to colour
        QCOMPARE(Theme::myCol(0.21f, 0.19f, 0.19f, 1.0f), Theme::darkText());
    }
    // Real key presses in a frameless tool window: the editing shortcuts work, and the
    // focused field shows the accent ring.
    void nameFieldShortcutsAndFocusRing()
    {
        QWidget panel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
        panel.resize(220, 40);
        auto *field = new VYTextField(&panel);
        field->setGeometry(10, 6, 200, 28);
        field->setText(QStringLiteral("holiday"));
        panel.show();
        panel.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&panel));
        field->setFocus();
        QTRY_VERIFY_WITH_TIMEOUT(field->hasFocus(), 2000);

        DesktopTools::key(QStringLiteral("ctrl+a"));
        QTRY_COMPARE_WITH_TIMEOUT(field->selectedText(), QStringLiteral("holiday"), 3000);
        DesktopTools::key(QStringLiteral("ctrl+c"));
        QTRY_COMPARE_WITH_TIMEOUT(QGuiApplication::clipboard()->text(), QStringLiteral("holiday"), 3000);
        DesktopTools::key(QStringLiteral("ctrl+x"));
        QTRY_VERIFY_WITH_TIMEOUT(field->text().isEmpty(), 3000);
        DesktopTools::key(QStringLiteral("ctrl+v"));
        DesktopTools::key(QStringLiteral("ctrl+v"));
        QTRY_COMPARE_WITH_TIMEOUT(field->text(), QStringLiteral("holidayholiday"), 3000);
        DesktopTools::key(QStringLiteral("ctrl+z"));
        QTRY_COMPARE_WITH_TIMEOUT(field->text(), QStringLiteral("holiday"), 3000);

        const QImage focused = field->grab().toImage();
        QCOMPARE(QColor(focused.pixel(field->width() / 2, 0)), Theme::accent());
        QCOMPARE(QColor(focused.pixel(field->width() / 2, field->height() / 2 - 8)), QColor(Qt::white));
        field->clearFocus();
        const QImage plain = field->grab().toImage();
        QVERIFY(QColor(plain.pixel(field->width() / 2, 0)) != Theme::accent());
    }
};

QTEST_MAIN(TestHoverControls)
#include "test_hover_controls.moc"
