#pragma once
// Start at login through the XDG autostart folder ($XDG_CONFIG_HOME/autostart).
// The folder is the truth, read anew on every call; nothing is kept in the settings.
// An entry counts when it is not Hidden and its Exec program is exactly this
// executable's path (case-sensitive). Failures are silent.

#include <QString>
#include <QStringList>

class Autostart {
public:
    // executablePath: the identity; empty means QCoreApplication::applicationFilePath().
    explicit Autostart(const QString &executablePath = QString());

    bool isLoginItem() const;
    // Writes quillo.desktop for this executable; no duplicate test (callers query first).
    void addAppAsLoginItem() const;
    // Removes every entry in the folder that launches this executable.
    void removeAppFromLoginItems() const;

    QString executablePath() const { return m_executable; }
    static QString autostartDir();       // $XDG_CONFIG_HOME/autostart, default ~/.config/autostart
    static QString entryFilePath();      // autostartDir() + "/quillo.desktop"
    static QByteArray entryText(const QString &executablePath);

private:
    QStringList launchingEntries() const;  // files of the entries that launch this executable
    QString m_executable;
};
