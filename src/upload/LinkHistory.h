#pragma once
// The history of links (setting URLArray, oldest first). GUI thread: it reads and writes
// settings.

#include <QString>
#include <QStringList>

namespace LinkHistory {

QStringList links();

// When `pasted` is set, appends the clipboard's current text (given by the caller) and
// clears `pasted`; stores the list again and answers it.
QStringList buildListURLs(const QString &clipboardText);

// Every link followed by a line feed (the text "Copy All URLs to Clipboard" copies).
QString copyAllText(const QStringList &links);

// Empties the history and writes toggleedit = NO.
void clear();

}  // namespace LinkHistory
