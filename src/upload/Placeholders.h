#pragma once
// The placeholders of uploader definitions: {name:argument} and the older $name:argument$.
// Request fields may use {setting:key}, {filename} and (as a whole argument value) {base64};
// answer fields (URL, ErrorMessage) may use {json:path}, {regex:pattern|group}, {response},
// {header:Name} and {filename}.

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <functional>

namespace Placeholders {

struct Segment {
    bool isPlaceholder = false;
    QString text;      // the literal text, or the placeholder's name
    QString argument;  // after the first ':'
    bool legacy = false;
};

// Splits a field into literal text and placeholders; `\{`, `\}` and `\\` escape outside them.
QList<Segment> split(const QString &text);

enum class Field { Request, Answer };
// Answers an error text naming the first placeholder a field may not use, or an empty string.
QString check(const QString &text, Field field);

using SettingLookup = std::function<QString(const QString &key)>;
// Fills {setting:key} and {filename}; leaves other placeholders as they were written.
QString expandRequest(const QString &text, const SettingLookup &setting, const QString &fileName);

struct Answer {
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers;
    QString fileName;
    QStringList regexList;  // legacy $regex:n|group$ refers to these patterns (1-based)
};
QString expandAnswer(const QString &text, const Answer &answer);

// Looks a value up in a JSON text: "data.link", "files[0].url", "[0].url", "$.a.b",
// and "..key" / "$..key" for the first member of that name anywhere.
QString jsonValue(const QByteArray &json, const QString &path);

}  // namespace Placeholders
