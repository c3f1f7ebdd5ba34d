#include "AppCatalogue.h"

#include "DesktopEntry.h"

#include <QCollator>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

QIcon CatalogueApp::icon() const
{
    if (iconName.isEmpty())
        return QIcon();
    if (QDir::isAbsolutePath(iconName))
        return QIcon(iconName);
    return QIcon::fromTheme(iconName);
}

namespace AppCatalogue {

QStringList applicationDirs()
{
    QString home = qEnvironmentVariable("XDG_DATA_HOME");
    if (home.isEmpty() || !QDir::isAbsolutePath(home))
        home = QDir::homePath() + QLatin1String("/.local/share");
    QString dirs = qEnvironmentVariable("XDG_DATA_DIRS");
    if (dirs.isEmpty())
        dirs = QStringLiteral("/usr/local/share/:/usr/share/");

    QStringList result;
    const QStringList bases = QStringList{home} + dirs.split(u':', Qt::SkipEmptyParts);
    for (const QString &base : bases) {
        if (!QDir::isAbsolutePath(base))
            continue;
        const QString dir = QDir::cleanPath(base + QLatin1String("/applications"));
        if (!result.contains(dir))
            result << dir;
    }
    return result;
}

QList<CatalogueApp> imageApps()
{
    QList<CatalogueApp> apps;
    QSet<QString> seenIds;
    for (const QString &dir : applicationDirs()) {
        QDirIterator it(dir, {QStringLiteral("*.desktop")}, QDir::Files | QDir::Readable,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            // The id is the path below applications/ with "/" turned into "-".
            const QString id = QDir(dir).relativeFilePath(path).replace(u'/', u'-');
            if (seenIds.contains(id))
                continue;
            seenIds.insert(id);  // even an unusable entry hides the ones below it
            const auto entry = DesktopEntry::load(path);
            if (!entry || entry->type != QLatin1String("Application") || entry->hidden
                || entry->noDisplay || entry->exec.isEmpty() || entry->tryExecMissing())
                continue;
            const bool opensImages = std::any_of(
                entry->mimeTypes.cbegin(), entry->mimeTypes.cend(),
                [](const QString &type) { return type.startsWith(QLatin1String("image/")); });
            if (!opensImages)
                continue;
            const QString name = entry->name.isEmpty() ? QFileInfo(path).completeBaseName() : entry->name;
            apps.append(CatalogueApp{id, name, entry->icon, path});
        }
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(apps.begin(), apps.end(), [&](const CatalogueApp &a, const CatalogueApp &b) {
        return collator.compare(a.name, b.name) < 0;
    });
    return apps;
}

}  // namespace AppCatalogue
