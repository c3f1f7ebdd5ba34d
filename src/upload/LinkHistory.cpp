#include "LinkHistory.h"

#include "Settings.h"

namespace LinkHistory {

QStringList links()
{
    return Settings::stringList(Key::URLArray);
}

QStringList buildListURLs(const QString &clipboardText)
{
    QStringList list = links();
    if (Settings::boolValue(Key::Pasted)) {
        list.append(clipboardText);
        Settings::setValues({{Key::Pasted, false}, {Key::URLArray, list}});
    } else {
        Settings::setValue(Key::URLArray, list);
    }
    return list;
}

QString copyAllText(const QStringList &links)
{
    qsizetype size = 0;
    for (const QString &link : links)
        size += link.size() + 1;
    QString text;
    text.reserve(size);
    for (const QString &link : links) {
        text += link;
        text += u'\n';
    }
    return text;
}

void clear()
{
    Settings::setValues({{Key::ToggleEdit, false}, {Key::URLArray, QStringList()}});
}

}  // namespace LinkHistory
