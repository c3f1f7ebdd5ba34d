#include "FileUrl.h"

#include "Texts.h"

#include <QDir>
#include <QUrl>

namespace FileUrl {

QString toStoredForm(const QString &absolutePath, bool isDir)
{
    if (absolutePath.isEmpty() || !absolutePath.startsWith(u'/'))
        return QString();
    QString path = absolutePath;
    if (isDir && !path.endsWith(u'/'))
        path += u'/';
    return QLatin1String("file://localhost")
        + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

QString pathFromStoredForm(const QString &stored)
{
    const QString text = stored.trimmed();
    if (text.startsWith(u'/'))
        return text.contains(QChar(0)) ? QString() : text;
    if (!text.startsWith(QLatin1String("file:"), Qt::CaseInsensitive))
        return QString();
    const QUrl url = QUrl::fromEncoded(text.toUtf8(), QUrl::StrictMode);
    if (!url.isValid() || url.scheme().compare(QLatin1String("file"), Qt::CaseInsensitive) != 0)
        return QString();
    const QString host = url.host();
    if (!host.isEmpty() && host.compare(QLatin1String("localhost"), Qt::CaseInsensitive) != 0)
        return QString();
    const QString path = url.path(QUrl::FullyDecoded);
    if (!path.startsWith(u'/') || path.contains(QChar(0)) || path.contains(QChar::ReplacementCharacter))
        return QString();
    return path;
}

QString saveFolderLabel(const QString &folderPath)
{
    QString path = folderPath;
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    const qsizetype slash = path.lastIndexOf(u'/');
    const QString last = slash < 0 ? u'/' + path : path.mid(slash);
    return Texts::SavesTo.arg(last);
}

}  // namespace FileUrl
