#pragma once
// The upload destinations Quillo knows: the built-in definitions (resources, :/uploaders)
// and those the user imported, kept as copies under $XDG_DATA_HOME/Quillo/uploaders.

#include "UploadDestination.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class UploaderCatalog
{
public:
    UploaderCatalog();  // loads at once

    static QString builtInFolder();  // ":/uploaders"
    static QString importFolder();

    void reload();
    const QList<UploadDestination> &destinations() const { return m_destinations; }
    QStringList names() const;
    std::optional<UploadDestination> find(const QString &name) const;

    // Checks the file, then copies it into importFolder(); a file of the same Name that
    // was imported before is replaced. Built-in names cannot be taken.
    bool importFile(const QString &path, QString *error);

    // Imported files that could not be read, each as "file: reason".
    const QStringList &problems() const { return m_problems; }

private:
    QList<UploadDestination> m_destinations;
    QStringList m_problems;
    int m_builtInCount = 0;
};
