#pragma once
// The colour label of a saved capture, kept as a tag in the file's user.xdg.tags
// extended attribute (comma-separated), beside the tags already there.

#include <QString>
#include <QStringList>

namespace FileLabel {
// 1 "Orange", 2 "Red", 3 "Yellow", 4 "Blue", 5 "Purple", 6 "Green", 7 "Gray"; else empty.
QString colourName(int labelIndex);

// The file's tags; empty when it has none or they cannot be read.
QStringList tags(const QString &filePath);

// Adds the label's colour name to the tags (no duplicate). Index 0 or unknown: nothing.
// A failure is logged in one line with qInfo; the answer tells whether the tag is there.
bool apply(const QString &filePath, int labelIndex);
}  // namespace FileLabel
