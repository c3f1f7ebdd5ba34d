#include "HelpPage.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace HelpPage {

QString installedPath()
{
    QFile shipped(QString::fromLatin1(ResourcePath));
    if (!shipped.open(QIODevice::ReadOnly))
        return QString();
    const QByteArray page = shipped.readAll();

    QString data = qEnvironmentVariable("XDG_DATA_HOME");
    if (data.isEmpty() || !QDir::isAbsolutePath(data))
        data = QDir::homePath() + QLatin1String("/.local/share");
    const QString dir = data + QLatin1String("/Quillo/help");
    const QString path = dir + QLatin1String("/index.html");

    QFile existing(path);
    if (existing.open(QIODevice::ReadOnly) && existing.size() == page.size() && existing.readAll() == page)
        return path;
    existing.close();
    if (!QDir().mkpath(dir))
        return QString();
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(page) != page.size() || !out.commit())
        return QString();
    return path;
}

QUrl installedUrl()
{
    const QString path = installedPath();
    return path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
}

}  // namespace HelpPage
