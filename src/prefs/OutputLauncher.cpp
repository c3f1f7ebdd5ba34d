#include "OutputLauncher.h"

#include "DesktopEntry.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace OutputLauncher {

bool openInDefaultViewer(const QString &filePath)
{
    if (filePath.isEmpty())
        return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(filePath));
}

bool openWithDesktopEntry(const QString &entryPath, const QString &filePath)
{
    const auto entry = DesktopEntry::load(entryPath);
    if (!entry || entry->type != QLatin1String("Application") || entry->tryExecMissing())
        return false;
    auto command = entry->commandFor(filePath);
    if (!command)
        return false;
    if (entry->terminal) {
        // A terminal program runs inside the desktop's terminal emulator when there is one.
        const QString terminal = QStandardPaths::findExecutable(QStringLiteral("x-terminal-emulator"));
        if (!terminal.isEmpty())
            *command = QStringList{terminal, QStringLiteral("-e")} + *command;
    }
    QString program = command->takeFirst();
    if (!QDir::isAbsolutePath(program))
        program = QStandardPaths::findExecutable(program);
    if (program.isEmpty())
        return false;
    return QProcess::startDetached(program, *command, QDir::homePath());
}

}  // namespace OutputLauncher
