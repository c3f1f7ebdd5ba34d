// The application picker dialog on the real X server.
#include "AppPickerDialog.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

namespace {
QList<CatalogueApp> sampleApps()
{
    return {
        {QStringLiteral("album.desktop"), QStringLiteral("Album"), QStringLiteral("image-x-generic"), QStringLiteral("/a/album.desktop")},
        {QStringLiteral("paint.desktop"), QStringLiteral("Paint"), QString(), QStringLiteral("/a/paint.desktop")},
        {QStringLiteral("viewer.desktop"), QStringLiteral("Viewer"), QString(), QStringLiteral("/a/viewer.desktop")},
    };
}

void saveArtifact(QWidget *widget, const QString &name)
{
    const QString dir = qEnvironmentVariable("QUILLO_TEST_ARTIFACTS");
    if (!dir.isEmpty())
        widget->grab().save(dir + u'/' + name);
}

QPushButton *cancelButton(QDialog *dialog)
{
    return dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel);
}
}  // namespace

class TestAppPicker : public QObject {
    Q_OBJECT
private slots:
    void selectButtonChoosesTheRow()
    {
        AppPickerDialog dialog(sampleApps(), QGuiApplication::primaryScreen());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Quillo"));
        QCOMPARE(dialog.selectButton()->text(), QStringLiteral("Select"));
        QVERIFY(dialog.selectButton()->isDefault());
        QCOMPARE(dialog.list()->count(), 3);
        QCOMPARE(dialog.list()->item(0)->text(), QStringLiteral("Album"));
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        saveArtifact(&dialog, QStringLiteral("prefs-app-picker.png"));

        dialog.list()->setCurrentRow(1);
        QTest::mouseClick(dialog.selectButton(), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QVERIFY(dialog.chosenApp());
        QCOMPARE(dialog.chosenApp()->entryPath, QStringLiteral("/a/paint.desktop"));
    }

    void returnAndDoubleClickSelect()
    {
        AppPickerDialog byKey(sampleApps(), nullptr, QStringLiteral("/a/viewer.desktop"));
        byKey.show();
        QVERIFY(QTest::qWaitForWindowExposed(&byKey));
        QCOMPARE(byKey.list()->currentRow(), 2);  // the current choice is preselected
        QTest::keyClick(byKey.list(), Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(!byKey.isVisible(), 2000);
        QCOMPARE(byKey.chosenApp()->id, QStringLiteral("viewer.desktop"));

        AppPickerDialog byMouse(sampleApps(), nullptr);
        byMouse.show();
        QVERIFY(QTest::qWaitForWindowExposed(&byMouse));
        QListWidget *list = byMouse.list();
        const QPoint spot = list->visualItemRect(list->item(1)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, spot);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, spot);
        QTRY_VERIFY_WITH_TIMEOUT(!byMouse.isVisible(), 2000);
        QCOMPARE(byMouse.result(), int(QDialog::Accepted));
        QCOMPARE(byMouse.chosenApp()->id, QStringLiteral("paint.desktop"));
    }

    void cancelChoosesNothing()
    {
        AppPickerDialog dialog(sampleApps(), nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QTest::mouseClick(cancelButton(&dialog), Qt::LeftButton);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(!dialog.chosenApp());

        AppPickerDialog escaped(sampleApps(), nullptr);
        escaped.show();
        QVERIFY(QTest::qWaitForWindowExposed(&escaped));
        QTest::keyClick(&escaped, Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!escaped.isVisible(), 2000);
        QVERIFY(!escaped.chosenApp());

        AppPickerDialog empty({}, nullptr);
        QVERIFY(!empty.selectButton()->isEnabled());
        empty.accept();
        QVERIFY(!empty.chosenApp());
    }

    void liesFullyOnItsScreen()
    {
        QScreen *screen = QGuiApplication::primaryScreen();
        AppPickerDialog dialog(sampleApps(), screen);
        dialog.resize(5000, 5000);  // far larger than the screen
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const QRect area = screen->availableGeometry();
        QTRY_VERIFY_WITH_TIMEOUT(area.contains(dialog.frameGeometry()), 2000);
        QVERIFY(dialog.frameGeometry().width() > 100);
        QVERIFY(qAbs(dialog.frameGeometry().center().x() - area.center().x()) < 40);
        dialog.reject();
    }
};

QTEST_MAIN(TestAppPicker)
#include "test_app_picker.moc"
