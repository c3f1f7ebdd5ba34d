#pragma once
// The stored form of the chosen output application and the custom save folder:
// "file://localhost" + the percent-encoded absolute path (folders end in "/").
// Capture code relies on the path starting right after those 16 characters.

#include <QString>

namespace FileUrl {
// Empty for an empty or relative path.
QString toStoredForm(const QString &absolutePath, bool isDir);

// Decodes every percent escape. Also takes "file:///path", "file:/path" and a plain
// absolute path (taken as it stands). Empty for anything else: another host or
// scheme, a broken escape, a relative path, a NUL byte.
QString pathFromStoredForm(const QString &stored);

// "Saves to /Pictures" for /home/x/Pictures (or /home/x/Pictures/); "Saves to /" for /.
QString saveFolderLabel(const QString &folderPath);
}  // namespace FileUrl
