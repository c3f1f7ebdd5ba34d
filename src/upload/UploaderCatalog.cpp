#include "UploaderCatalog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

QStringList definitionFiles(const QString &folder)
{
    QStringList paths;
    const QDir dir(folder);
    for (const QString &name : dir.entryList({QStringLiteral("*.sxcu")}, QDir::Files | QDir::Readable, QDir::Name))
        paths.append(dir.filePath(name));
    return paths;
}

}  // namespace

UploaderCatalog::UploaderCatalog() { reload(); }

QString UploaderCatalog::builtInFolder() { return QStringLiteral(":/uploaders"); }

QString UploaderCatalog::importFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/Quillo/uploaders");
}

void UploaderCatalog::reload()
{
    m_destinations.clear();
    m_problems.clear();
    for (const QString &path : definitionFiles(builtInFolder())) {
        QString error;
        if (auto d = UploadDestination::fromFile(path, &error))
            m_destinations.append(*d);
        else
            m_problems.append(QStringLiteral("%1: %2").arg(path, error));
    }
    m_builtInCount = int(m_destinations.size());
    for (const QString &path : definitionFiles(importFolder())) {
        QString error;
        auto d = UploadDestination::fromFile(path, &error);
        if (!d)
            m_problems.append(QStringLiteral("%1: %2").arg(path, error));
        else if (!find(d->name))
            m_destinations.append(*d);
    }
}

QStringList UploaderCatalog::names() const
{
    QStringList out;
    for (const UploadDestination &d : m_destinations)
        out.append(d.name);
    return out;
}

std::optional<UploadDestination> UploaderCatalog::find(const QString &name) const
{
    for (const UploadDestination &d : m_destinations)
        if (d.name.compare(name, Qt::CaseInsensitive) == 0)
            return d;
    return std::nullopt;
}

bool UploaderCatalog::importFile(const QString &path, QString *error)
{
    QString scratch;
    QString &why = error ? *error : scratch;
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly)) {
        why = QStringLiteral("cannot read %1").arg(path);
        return false;
    }
    const QByteArray bytes = source.read(256 * 1024 + 1);
    if (bytes.size() > 256 * 1024) {
        why = QStringLiteral("%1 is too large for an uploader definition").arg(path);
        return false;
    }
    auto d = UploadDestination::fromJson(bytes, &why);
    if (!d)
        return false;
    for (int i = 0; i < m_builtInCount; ++i)
        if (m_destinations.at(i).name.compare(d->name, Qt::CaseInsensitive) == 0) {
            why = QStringLiteral("\"%1\" is the name of a built-in destination").arg(d->name);
            return false;
        }

    if (!QDir().mkpath(importFolder())) {
        why = QStringLiteral("cannot create %1").arg(importFolder());
        return false;
    }
    // A file of the same Name imported earlier is replaced.
    for (const UploadDestination &old : m_destinations.mid(m_builtInCount))
        if (old.name.compare(d->name, Qt::CaseInsensitive) == 0)
            QFile::remove(old.sourcePath);
    QString base = d->name;
    base.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9._ -]")), QStringLiteral("_"));
    if (base.startsWith(u'.'))
        base.prepend(u'_');
    QSaveFile target(QDir(importFolder()).filePath(base + QStringLiteral(".sxcu")));
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() || !target.commit()) {
        why = QStringLiteral("cannot write into %1").arg(importFolder());
        return false;
    }
    reload();
    return true;
}
