#pragma once
// The application picker: "Set Output App" with the image applications, a "Select"
// button (default; Return and a double click select too) and a cancel button.
// It sits centred on the given screen and never reaches past it.

#include "AppCatalogue.h"

#include <QDialog>
#include <optional>

class QListWidget;
class QPushButton;
class QScreen;

class AppPickerDialog : public QDialog {
    Q_OBJECT
public:
    // screen: where the dialog appears (the tray icon's screen); null means the primary one.
    // currentEntryPath: the entry to preselect, if it is in the list.
    AppPickerDialog(const QList<CatalogueApp> &apps, QScreen *screen,
                    const QString &currentEntryPath = QString(), QWidget *parent = nullptr);

    // The chosen application after accept(); nullopt when cancelled or nothing chosen.
    std::optional<CatalogueApp> chosenApp() const;

    QListWidget *list() const { return m_list; }
    QPushButton *selectButton() const { return m_select; }

    // Runs the dialog modally over the catalogue of image applications.
    static std::optional<CatalogueApp> pick(QScreen *screen, const QString &currentEntryPath = QString());

protected:
    void showEvent(QShowEvent *event) override;

private:
    void placeOnScreen();

    QList<CatalogueApp> m_apps;
    QScreen *m_screen;
    QListWidget *m_list;
    QPushButton *m_select;
};
