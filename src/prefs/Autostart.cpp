#include "Autostart.h"

#include "DesktopEntry.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>

Autostart::Autostart(const QString &executablePath)
    : m_executable(executablePath.isEmpty() ? QCoreApplication::applicationFilePath()
                                            : executablePath)
{
}

QString Autostart::autostartDir()
{
    QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (config.isEmpty() || !QDir::isAbsolutePath(config))
        config = QDir::homePath() + QLatin1String("/.config");
    return config + QLatin1String("/autostart");
}

QString Autostart::entryFilePath() { return autostartDir() + QLatin1String("/quillo.desktop"); }

QStringList Autostart::launchingEntries() const
{
    QStringList found;
    if (m_executable.isEmpty())
        return found;
    const QDir dir(autostartDir());
    const QStringList names = dir.entryList({QStringLiteral("*.desktop")}, QDir::Files | QDir::Readable);
    for (const QString &name : names) {
        const QString path = dir.filePath(name);
        const auto entry = DesktopEntry::load(path);
        if (entry && !entry->hidden && entry->program() == m_executable)
            found << path;
    }
    return found;
}

bool Autostart::isLoginItem() const { return !launchingEntries().isEmpty(); }

void Autostart::addAppAsLoginItem() const
{
    if (m_executable.isEmpty() || !QDir().mkpath(autostartDir()))
        return;
    QSaveFile file(entryFilePath());
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(entryText(m_executable));
    file.commit();
}

void Autostart::removeAppFromLoginItems() const
{
    for (const QString &path : launchingEntries())
        QFile::remove(path);
}

QByteArray Autostart::entryText(const QString &executablePath)
{
    const QString exec = DesktopExec::escapeValue(DesktopExec::quoteArgument(executablePath));
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Quillo\n"
                          "Comment=Screenshots from the system tray\n"
                          "Exec=%1\n"
                          "Icon=quillo\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-enabled=true\n")
        .arg(exec)
        .toUtf8();
}
