#pragma once
// One capture, as the panel's options describe it, and the grabber command it becomes.

#include <QString>
#include <QStringList>
#include <functional>

struct CaptureRequest {
    QString methodFlag;        // "-i", "-w" or "" (whole screen)
    QString outputOptionSlot;  // always empty
    QString format;            // the format item's title, e.g. "jpg" or "PNG"
    bool shadows = false;      // window captures keep their shadow
    QString folder;            // ends in a slash
    QString name;              // null for a capture without a name (the silent hot key)
    QString shotName;          // the name of the latest shoot, null before the first one
};

struct CaptureFile {
    QString path;       // where the grabber writes
    QString plainName;  // name.ext before any numbering
};

namespace CaptureNaming {

using ExistsFn = std::function<bool(const QString &path)>;
bool pathExists(const QString &path);

QString typeOption(const QString &format);  // "-t" + the title as it stands
QString extension(const QString &format);   // the title in lower case

// name.ext in the folder; when taken, <shotName>1.ext, <shotName>2.ext, ... A missing
// name is "Quillo"; numbering falls back to the name while no shoot has named one.
CaptureFile chooseFile(const CaptureRequest &request, const ExistsFn &exists = pathExists);

QStringList arguments(const CaptureRequest &request, const QString &path);

}  // namespace CaptureNaming
