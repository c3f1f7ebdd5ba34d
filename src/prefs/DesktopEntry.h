#pragma once
// A freedesktop desktop entry: the keys of its [Desktop Entry] group that Quillo uses,
// and the expansion of its Exec line into a program and arguments (never a shell line).

#include <QLocale>
#include <QString>
#include <QStringList>
#include <optional>

struct DesktopEntry {
    QString path;       // the file it was read from
    QString type;       // "Application", "Link", ...
    QString name;       // Name, in the best matching locale
    QString exec;       // Exec, with the value escapes (\s \n \t \r \\) already resolved
    QString tryExec;
    QString icon;
    QStringList mimeTypes;
    bool hidden = false;
    bool noDisplay = false;
    bool terminal = false;

    // Reads the file; nullopt when it is missing, unreadable, too large or has no
    // [Desktop Entry] group.
    static std::optional<DesktopEntry> load(const QString &path, const QLocale &locale = QLocale());
    // Same, from text already read.
    static std::optional<DesktopEntry> parse(const QByteArray &text, const QString &path,
                                             const QLocale &locale = QLocale());

    // TryExec names a program that is not installed.
    bool tryExecMissing() const;

    // The program (first word of Exec), or empty when Exec is empty or malformed.
    QString program() const;

    // Program and arguments for opening filePath (empty: no file), or nullopt when
    // Exec is empty or malformed.
    std::optional<QStringList> commandFor(const QString &filePath) const;
};

namespace DesktopExec {
// What the field codes stand for.
struct Context {
    QString filePath;   // %f %F; %u %U get its file URL
    QString icon;       // %i -> "--icon" <icon>
    QString name;       // %c
    QString entryPath;  // %k
};

// Splits an Exec value into words by the quoting rules and expands the field codes.
// When Exec holds no file code (%f %F %u %U) and a file is given, the file is appended
// as the last argument. nullopt for an empty or malformed line (e.g. an open quote).
std::optional<QStringList> expand(const QString &exec, const Context &context);

// Quotes one word so that expand() gives it back unchanged (for writing Exec lines);
// the result still needs the value escaping of escapeValue() when written to a file.
QString quoteArgument(const QString &word);

// The value escaping of desktop files: \ -> \\, newline -> \n, tab -> \t, CR -> \r.
QString escapeValue(const QString &value);
}  // namespace DesktopExec
