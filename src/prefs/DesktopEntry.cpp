#include "DesktopEntry.h"

#include <QFile>
#include <QHash>
#include <QStandardPaths>
#include <QUrl>

namespace {
constexpr qint64 MaxEntrySize = 1 << 20;  // no real desktop file comes near this

// Resolves the value escapes \s \n \t \r \\; any other backslash stays as written.
QString unescapeValue(const QString &raw)
{
    QString out;
    out.reserve(raw.size());
    for (int i = 0; i < raw.size(); ++i) {
        const QChar c = raw.at(i);
        if (c != u'\\' || i + 1 >= raw.size()) {
            out += c;
            continue;
        }
        const QChar n = raw.at(i + 1);
        switch (n.unicode()) {
        case 's': out += u' '; break;
        case 'n': out += u'\n'; break;
        case 't': out += u'\t'; break;
        case 'r': out += u'\r'; break;
        case '\\': out += u'\\'; break;
        default: out += c; out += n; break;
        }
        ++i;
    }
    return out;
}

QStringList splitList(const QString &value)
{
    QStringList items;
    QString current;
    for (int i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        if (c == u'\\' && i + 1 < value.size() && value.at(i + 1) == u';') {
            current += u';';
            ++i;
        } else if (c == u';') {
            if (!current.trimmed().isEmpty())
                items << current.trimmed();
            current.clear();
        } else {
            current += c;
        }
    }
    if (!current.trimmed().isEmpty())
        items << current.trimmed();
    return items;
}

bool isTrue(const QString &value) { return value.trimmed() == QLatin1String("true"); }

QString localized(const QHash<QString, QString> &keys, const QString &key, const QLocale &locale)
{
    const QString name = locale.name();  // e.g. "de_DE"
    QStringList candidates{name};
    const qsizetype underscore = name.indexOf(u'_');
    if (underscore > 0)
        candidates << name.left(underscore);
    for (const QString &lang : candidates) {
        const auto it = keys.constFind(key + u'[' + lang + u']');
        if (it != keys.constEnd() && !it->isEmpty())
            return *it;
    }
    return keys.value(key);
}

// One word of an Exec line: literal text and field codes in order.
struct Piece {
    QChar code;  // null for literal text
    QString text;
};
using Word = QList<Piece>;

std::optional<QList<Word>> tokenize(const QString &exec)
{
    QList<Word> words;
    Word word;
    bool inWord = false;
    bool quoted = false;
    auto addText = [&](QChar c) {
        if (word.isEmpty() || !word.last().code.isNull())
            word.append(Piece{QChar(), QString()});
        word.last().text += c;
    };
    auto addFieldCode = [&](QChar code) {
        if (code == u'%')
            addText(code);
        else
            word.append(Piece{code, QString()});
    };
    for (int i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (quoted) {
            if (c == u'"') {
                quoted = false;
            } else if (c == u'\\' && i + 1 < exec.size()
                       && QStringView(u"\"`$\\").contains(exec.at(i + 1))) {
                addText(exec.at(++i));
            } else if (c == u'%' && i + 1 < exec.size()) {
                // Codes inside quotes are replaced by their text, never split.
                addFieldCode(exec.at(++i));
            } else {
                addText(c);
            }
            continue;
        }
        if (c == u' ' || c == u'\t' || c == u'\n') {
            if (inWord)
                words.append(word);
            word.clear();
            inWord = false;
            continue;
        }
        inWord = true;
        if (c == u'"') {
            quoted = true;
        } else if (c == u'\\' && i + 1 < exec.size()) {
            addText(exec.at(++i));
        } else if (c == u'%' && i + 1 < exec.size()) {
            addFieldCode(exec.at(++i));
        } else {
            addText(c);
        }
    }
    if (quoted)
        return std::nullopt;
    if (inWord)
        words.append(word);
    return words;
}

bool isFileCode(QChar code) { return QStringView(u"fFuU").contains(code); }
}  // namespace

std::optional<DesktopEntry> DesktopEntry::load(const QString &path, const QLocale &locale)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxEntrySize)
        return std::nullopt;
    return parse(file.read(MaxEntrySize), path, locale);
}

std::optional<DesktopEntry> DesktopEntry::parse(const QByteArray &text, const QString &path,
                                                const QLocale &locale)
{
    QHash<QString, QString> keys;
    bool inGroup = false;
    bool sawGroup = false;
    const QByteArray body = text.startsWith("\xEF\xBB\xBF") ? text.mid(3) : text;  // UTF-8 byte order mark
    for (const QByteArray &rawLine : body.split('\n')) {
        const QString line = QString::fromUtf8(rawLine).trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        if (line.startsWith(u'[')) {
            if (inGroup)
                break;  // the group has ended; other groups are actions etc.
            inGroup = line == QLatin1String("[Desktop Entry]");
            sawGroup = sawGroup || inGroup;
            continue;
        }
        if (!inGroup)
            continue;
        const qsizetype eq = line.indexOf(u'=');
        if (eq <= 0)
            continue;
        const QString key = line.left(eq).trimmed();
        if (!keys.contains(key))  // the first of duplicate keys wins
            keys.insert(key, line.mid(eq + 1).trimmed());
    }
    if (!sawGroup)
        return std::nullopt;

    DesktopEntry entry;
    entry.path = path;
    entry.type = keys.value(QStringLiteral("Type"));
    entry.name = unescapeValue(localized(keys, QStringLiteral("Name"), locale));
    entry.exec = unescapeValue(keys.value(QStringLiteral("Exec")));
    entry.tryExec = unescapeValue(keys.value(QStringLiteral("TryExec")));
    entry.icon = unescapeValue(localized(keys, QStringLiteral("Icon"), locale));
    entry.mimeTypes = splitList(keys.value(QStringLiteral("MimeType")));
    entry.hidden = isTrue(keys.value(QStringLiteral("Hidden")));
    entry.noDisplay = isTrue(keys.value(QStringLiteral("NoDisplay")));
    entry.terminal = isTrue(keys.value(QStringLiteral("Terminal")));
    return entry;
}

bool DesktopEntry::tryExecMissing() const
{
    return !tryExec.isEmpty() && QStandardPaths::findExecutable(tryExec).isEmpty();
}

QString DesktopEntry::program() const
{
    const auto command = DesktopExec::expand(exec, DesktopExec::Context{});
    return command ? command->value(0) : QString();
}

std::optional<QStringList> DesktopEntry::commandFor(const QString &filePath) const
{
    return DesktopExec::expand(exec, DesktopExec::Context{filePath, icon, name, path});
}

namespace DesktopExec {

std::optional<QStringList> expand(const QString &exec, const Context &context)
{
    const auto words = tokenize(exec);
    if (!words || words->isEmpty())
        return std::nullopt;

    const bool hasFile = !context.filePath.isEmpty();
    const QString fileUrl =
        hasFile ? QString::fromUtf8(QUrl::fromLocalFile(context.filePath).toEncoded()) : QString();
    auto textOf = [&](QChar code) -> QString {
        switch (code.unicode()) {
        case 'f': case 'F': return context.filePath;
        case 'u': case 'U': return fileUrl;
        case 'i': return context.icon;
        case 'c': return context.name;
        case 'k': return context.entryPath;
        default: return QString();  // deprecated (%d %D %n %N %v %m) and unknown codes vanish
        }
    };

    QStringList args;
    bool usedFile = false;
    for (const Word &word : *words) {
        bool onlyCodes = !word.isEmpty();
        for (const Piece &piece : word)
            onlyCodes = onlyCodes && !piece.code.isNull();
        if (onlyCodes && word.size() == 1) {
            // A code standing alone becomes zero, one or two arguments.
            const QChar code = word.first().code;
            if (isFileCode(code)) {
                usedFile = true;
                if (hasFile)
                    args << textOf(code);
            } else if (code == u'i') {
                if (!context.icon.isEmpty())
                    args << QStringLiteral("--icon") << context.icon;
            } else if (code == u'c' || code == u'k') {
                args << textOf(code);
            }
            continue;
        }
        QString text;
        for (const Piece &piece : word) {
            if (piece.code.isNull()) {
                text += piece.text;
            } else {
                usedFile = usedFile || isFileCode(piece.code);
                text += textOf(piece.code);
            }
        }
        if (!(onlyCodes && text.isEmpty()))
            args << text;
    }
    if (args.isEmpty() || args.first().isEmpty())
        return std::nullopt;
    if (!usedFile && hasFile)
        args << context.filePath;
    return args;
}

QString quoteArgument(const QString &word)
{
    QString out = QStringLiteral("\"");
    for (const QChar c : word) {
        if (QStringView(u"\"`$\\").contains(c))
            out += u'\\';
        if (c == u'%')
            out += u'%';  // a literal percent sign is written %%
        out += c;
    }
    return out + u'"';
}

QString escapeValue(const QString &value)
{
    QString out;
    for (const QChar c : value) {
        switch (c.unicode()) {
        case '\\': out += QLatin1String("\\\\"); break;
        case '\n': out += QLatin1String("\\n"); break;
        case '\t': out += QLatin1String("\\t"); break;
        case '\r': out += QLatin1String("\\r"); break;
        default: out += c; break;
        }
    }
    return out;
}

}  // namespace DesktopExec
