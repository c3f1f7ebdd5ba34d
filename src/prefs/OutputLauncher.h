#pragma once
// Opens a finished capture: in the desktop's default viewer, or in a chosen
// application through its desktop entry (Exec expanded, started without a shell).

#include <QString>

namespace OutputLauncher {
// Asks the desktop to open the file's URL. False when nothing could take it.
bool openInDefaultViewer(const QString &filePath);

// Starts the entry's program with the file. False when the entry is missing, not an
// application, has an empty or malformed Exec, or its program cannot be started.
bool openWithDesktopEntry(const QString &entryPath, const QString &filePath);
}  // namespace OutputLauncher
