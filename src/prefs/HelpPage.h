#pragma once
// Quillo's help page, shipped in the resources (:/help/index.html) and copied to
// $XDG_DATA_HOME/Quillo/help/index.html so that the desktop's browser can open it.

#include <QString>
#include <QUrl>

namespace HelpPage {
inline constexpr char ResourcePath[] = ":/help/index.html";

// Writes the page when it is missing or differs from the shipped one and answers its
// path; empty when the page is not in the resources or cannot be written.
QString installedPath();

// installedPath() as a file URL (invalid when empty).
QUrl installedUrl();
}  // namespace HelpPage
