// The upload destinations in the preferences pop-up: after the seven fixed items, one
// item per destination (the chosen one checked) and "Import Uploader…".
#include "PanelController.h"

#include "HoverPopUp.h"
#include "PanelPlacement.h"
#include "Settings.h"
#include "StatusItemView.h"
#include "Texts.h"
#include "Theme.h"
#include "UploadDestination.h"
#include "UploaderCatalog.h"
#include "ui_Panel.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <QStandardPaths>

namespace {
const QString kUploadTo = QStringLiteral("Upload to %1");
const QString kImportUploader = QStringLiteral("Import Uploader…");
}  // namespace

void PanelController::refreshUploaderItems()
{
    if (!m_ui)
        return;
    QComboBox *prefs = m_ui->popUpPrefs;
    // Everything after the fixed items is rebuilt.
    const int firstExtra = prefs->findData(7) + 1;
    while (prefs->count() > firstExtra)
        prefs->removeItem(prefs->count() - 1);

    const QString chosen = Settings::stringValue(Key::Uploader);
    const UploaderCatalog catalog;
    prefs->insertSeparator(prefs->count());
    const QStringList names = catalog.names();
    for (int i = 0; i < names.size(); ++i) {
        const QString title = kUploadTo.arg(names[i]);
        prefs->addItem(names[i] == chosen ? Texts::checked(title) : title, kFirstUploaderTag + i);
        Theme::colorMenuItem(prefs, prefs->count() - 1, names[i] == chosen);
    }
    prefs->addItem(kImportUploader, kImportUploaderTag);
    Theme::colorMenuItem(prefs, prefs->count() - 1, false);
}

void PanelController::chooseUploader(int tag)
{
    const QStringList names = UploaderCatalog().names();
    const int index = tag - kFirstUploaderTag;
    if (index >= 0 && index < names.size())
        Settings::setValue(Key::Uploader, names[index]);
    refreshUploaderItems();
}

void PanelController::importUploader()
{
    PickerSession picker(this);
    QFileDialog dialog(nullptr, QStringLiteral("Quillo"),
                       QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
                       QStringLiteral("Custom uploaders (*.sxcu *.json)"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setLabelText(QFileDialog::Accept, QStringLiteral("Import"));
    dialog.resize(640, 420);
    if (QScreen *screen = iconScreen())
        dialog.setGeometry(PanelPlacement::centre(dialog.size(), screen->availableGeometry()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;

    const QString path = dialog.selectedFiles().first();
    QString error;
    UploaderCatalog catalog;
    const std::optional<UploadDestination> destination = UploadDestination::fromFile(path, &error);
    if (destination && catalog.importFile(path, &error)) {
        Settings::setValue(Key::Uploader, destination->name);
        refreshUploaderItems();
        return;
    }
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Quillo"),
                    QStringLiteral("This uploader cannot be used."), QMessageBox::Ok);
    box.setInformativeText(error);
    if (QScreen *screen = iconScreen())
        box.move(screen->availableGeometry().center() - QPoint(box.sizeHint().width() / 2, box.sizeHint().height() / 2));
    box.exec();
}
