#pragma once
// The installed applications that open images: desktop entries under applications/
// in XDG_DATA_HOME and XDG_DATA_DIRS whose MimeType lists an image/* type.

#include <QIcon>
#include <QList>
#include <QString>
#include <QStringList>

struct CatalogueApp {
    QString id;         // desktop-file id, e.g. "org.example.Viewer.desktop"
    QString name;       // display name
    QString iconName;   // Icon key: a theme name or an absolute path
    QString entryPath;  // the .desktop file

    QIcon icon() const;  // needs a QGuiApplication
};

namespace AppCatalogue {
// XDG_DATA_HOME (default ~/.local/share) then XDG_DATA_DIRS (default
// /usr/local/share:/usr/share), each with "/applications" appended, duplicates dropped.
QStringList applicationDirs();

// Entries found earlier shadow later ones with the same id; Hidden, NoDisplay,
// non-Application entries and entries whose TryExec is not installed are left out.
// Sorted by name.
QList<CatalogueApp> imageApps();
}  // namespace AppCatalogue
