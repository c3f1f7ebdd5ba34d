#include "CaptureRequest.h"

#include <QDir>
#include <QFileInfo>

namespace CaptureNaming {

bool pathExists(const QString &path)
{
    return QFileInfo::exists(path);
}

QString typeOption(const QString &format)
{
    return QStringLiteral("-t") + format;
}

QString extension(const QString &format)
{
    return format.toLower();
}

// A typed name is a file name, never a path: "2024/05/01" would point into folders that
// do not exist and "../x" out of the chosen one.
static QString asFileName(QString name)
{
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    name.remove(QChar(0));
    return name == QLatin1String(".") || name == QLatin1String("..") ? QStringLiteral("Quillo") : name;
}

CaptureFile chooseFile(const CaptureRequest &request, const ExistsFn &exists)
{
    const QString ext = extension(request.format);
    const QString name = request.name.isNull() ? QStringLiteral("Quillo") : asFileName(request.name);
    const QString numberedBase = request.shotName.isNull() ? name : asFileName(request.shotName);

    CaptureFile file;
    file.plainName = name + QLatin1Char('.') + ext;
    file.path = request.folder + file.plainName;
    for (int n = 1; exists(file.path); ++n)
        file.path = QDir(request.folder).filePath(numberedBase + QString::number(n) + QLatin1Char('.') + ext);
    return file;
}

QStringList arguments(const CaptureRequest &request, const QString &path)
{
    QStringList args{request.methodFlag, request.outputOptionSlot, typeOption(request.format), path};
    if (!request.shadows)
        args.insert(2, QStringLiteral("-o"));
    if (request.methodFlag.isEmpty())
        args.removeAt(0);
    if (request.outputOptionSlot.isEmpty())
        args.removeAt(request.methodFlag.isEmpty() ? 0 : 1);
    return args;
}

}  // namespace CaptureNaming
