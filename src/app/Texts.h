#pragma once
// Texts that Quillo shows in more than one place.

#include <QString>

namespace Texts {
inline const QString Check = QStringLiteral("✓ ");
inline const QString SetSavePath = QStringLiteral("Set Save Path");
inline const QString SetOutputApp = QStringLiteral("Set Output App");
inline const QString Hotkeys = QStringLiteral("Hotkeys Super+Shift+1 / Super+Shift+2");
inline const QString RunOnStartup = QStringLiteral("Run On Startup");
inline const QString GrabWindowShadows = QStringLiteral("Grab window shadows");
inline const QString SavesToDesktop = QStringLiteral("Saves to Desktop");
inline const QString SavesTo = QStringLiteral("Saves to %1");
inline const QString OpensInPreview = QStringLiteral("Opens in Preview");
inline const QString OpensIn = QStringLiteral("Opens in %1");
inline const QString ProducesURL = QStringLiteral("Produces URL");
inline const QString AccessURLList = QStringLiteral("Access URL List");
inline const QString CopyAllURLs = QStringLiteral("Copy All URLs to Clipboard");
inline const QString ClearList = QStringLiteral("Clear List");
inline const QString UploadingQuillo = QStringLiteral("Uploading Quillo");
inline const QString URLCopied = QStringLiteral("URL Copied to Clipboard");
inline const QString ErrorUploading = QStringLiteral("Error Uploading Screenshot");
inline const QString DefaultShotName = QStringLiteral("Quillo");

inline QString checked(const QString &title) { return Check + title; }
}  // namespace Texts
