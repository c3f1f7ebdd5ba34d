#include "Placeholders.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <cmath>

namespace Placeholders {

namespace {

const QStringList kLegacyNames = {QStringLiteral("json"), QStringLiteral("response"),
                                  QStringLiteral("header"), QStringLiteral("filename"),
                                  QStringLiteral("regex"), QStringLiteral("xml"),
                                  QStringLiteral("random"), QStringLiteral("input"),
                                  QStringLiteral("prompt"), QStringLiteral("base64")};

bool isIdentifier(const QString &s)
{
    if (s.isEmpty())
        return false;
    for (QChar c : s)
        if (!(c.isLetterOrNumber() || c == u'_'))
            return false;
    return true;
}

void appendLiteral(QList<Segment> &out, const QString &text)
{
    if (text.isEmpty())
        return;
    if (!out.isEmpty() && !out.last().isPlaceholder)
        out.last().text += text;
    else
        out.append(Segment{false, text, {}, false});
}

// Reads "{...}" starting at `open`; answers the index after the closing brace, or -1.
qsizetype closingBrace(const QString &text, qsizetype open)
{
    int depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\\') {
            ++i;
        } else if (c == u'{') {
            ++depth;
        } else if (c == u'}' && --depth == 0) {
            return i + 1;
        }
    }
    return -1;
}

// The regex argument "pattern|group": the group is taken off only when it names one.
QPair<QString, QString> regexParts(const QString &argument)
{
    const qsizetype bar = argument.lastIndexOf(u'|');
    if (bar > 0) {
        const QString pattern = argument.left(bar);
        const QString group = argument.mid(bar + 1);
        bool numeric = false;
        group.toInt(&numeric);
        if (numeric || QRegularExpression(pattern).namedCaptureGroups().contains(group))
            return {pattern, group};
    }
    return {argument, QString()};
}

QString regexValue(const QString &subject, const QString &pattern, const QString &group)
{
    const QRegularExpression re(pattern);
    if (!re.isValid())
        return {};
    const QRegularExpressionMatch m = re.match(subject);
    if (!m.hasMatch())
        return {};
    bool numeric = false;
    const int index = group.toInt(&numeric);
    if (group.isEmpty())
        return m.captured(0);
    return numeric ? m.captured(index) : m.captured(group);
}

QString headerValue(const Answer &answer, const QString &name)
{
    QString found;
    for (const auto &[key, value] : answer.headers)
        if (QString::fromLatin1(key).compare(name, Qt::CaseInsensitive) == 0)
            found = QString::fromUtf8(value).trimmed();
    return found;
}

QString jsonText(const QJsonValue &v)
{
    switch (v.type()) {
    case QJsonValue::String: return v.toString();
    case QJsonValue::Bool: return v.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double: {
        const double d = v.toDouble();
        if (d == double(qint64(d)) && std::abs(d) < 1e15)
            return QString::number(qint64(d));
        return QString::number(d, 'g', 17);
    }
    case QJsonValue::Object: return QString::fromUtf8(QJsonDocument(v.toObject()).toJson(QJsonDocument::Compact));
    case QJsonValue::Array: return QString::fromUtf8(QJsonDocument(v.toArray()).toJson(QJsonDocument::Compact));
    default: return {};
    }
}

bool deepFind(const QJsonValue &v, const QString &key, QJsonValue *out)
{
    if (v.isObject()) {
        const QJsonObject o = v.toObject();
        if (o.contains(key)) {
            *out = o.value(key);
            return true;
        }
        for (auto it = o.begin(); it != o.end(); ++it)
            if (deepFind(it.value(), key, out))
                return true;
    } else if (v.isArray()) {
        for (const QJsonValue &item : v.toArray())
            if (deepFind(item, key, out))
                return true;
    }
    return false;
}

}  // namespace

QList<Segment> split(const QString &text)
{
    QList<Segment> out;
    QString literal;
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text.at(i);
        if (c == u'\\' && i + 1 < text.size()
            && (text.at(i + 1) == u'{' || text.at(i + 1) == u'}' || text.at(i + 1) == u'\\')) {
            literal += text.at(i + 1);
            i += 2;
            continue;
        }
        if (c == u'{') {
            const qsizetype end = closingBrace(text, i);
            const QString inner = end > 0 ? text.mid(i + 1, end - i - 2) : QString();
            const qsizetype colon = inner.indexOf(u':');
            const QString name = colon < 0 ? inner : inner.left(colon);
            if (end > 0 && isIdentifier(name)) {
                appendLiteral(out, literal);
                literal.clear();
                out.append(Segment{true, name.toLower(), colon < 0 ? QString() : inner.mid(colon + 1), false});
                i = end;
                continue;
            }
        }
        if (c == u'$') {
            const qsizetype end = text.indexOf(u'$', i + 1);
            const QString inner = end > 0 ? text.mid(i + 1, end - i - 1) : QString();
            const qsizetype colon = inner.indexOf(u':');
            const QString name = (colon < 0 ? inner : inner.left(colon)).toLower();
            if (end > 0 && kLegacyNames.contains(name)) {
                appendLiteral(out, literal);
                literal.clear();
                out.append(Segment{true, name, colon < 0 ? QString() : inner.mid(colon + 1), true});
                i = end + 1;
                continue;
            }
        }
        literal += c;
        ++i;
    }
    appendLiteral(out, literal);
    return out;
}

QString check(const QString &text, Field field)
{
    static const QStringList request = {QStringLiteral("setting"), QStringLiteral("filename"),
                                        QStringLiteral("base64")};
    static const QStringList answer = {QStringLiteral("json"), QStringLiteral("regex"),
                                       QStringLiteral("response"), QStringLiteral("header"),
                                       QStringLiteral("filename")};
    for (const Segment &s : split(text)) {
        if (!s.isPlaceholder)
            continue;
        const QString shown = s.legacy ? QStringLiteral("$%1$").arg(s.text) : QStringLiteral("{%1}").arg(s.text);
        const QStringList &allowed = field == Field::Request ? request : answer;
        if (!allowed.contains(s.text))
            return QStringLiteral("unsupported placeholder %1").arg(shown);
        const bool needsArgument = s.text == u"json" || s.text == u"regex" || s.text == u"header"
            || s.text == u"setting";
        if (needsArgument && s.argument.isEmpty())
            return QStringLiteral("placeholder %1 needs an argument").arg(shown);
        if (s.text == u"regex" && !s.legacy && !QRegularExpression(regexParts(s.argument).first).isValid())
            return QStringLiteral("invalid regular expression in %1").arg(shown);
    }
    return {};
}

QString expandRequest(const QString &text, const SettingLookup &setting, const QString &fileName)
{
    QString out;
    for (const Segment &s : split(text)) {
        if (!s.isPlaceholder)
            out += s.text;
        else if (s.text == u"setting")
            out += setting ? setting(s.argument) : QString();
        else if (s.text == u"filename")
            out += fileName;
        else
            out += QStringLiteral("{%1%2}").arg(s.text, s.argument.isNull() ? QString() : u':' + s.argument);
    }
    return out;
}

QString expandAnswer(const QString &text, const Answer &answer)
{
    const QString body = QString::fromUtf8(answer.body);
    QString out;
    for (const Segment &s : split(text)) {
        if (!s.isPlaceholder) {
            out += s.text;
        } else if (s.text == u"response") {
            out += body;
        } else if (s.text == u"json") {
            out += jsonValue(answer.body, s.argument);
        } else if (s.text == u"header") {
            out += headerValue(answer, s.argument);
        } else if (s.text == u"filename") {
            out += answer.fileName;
        } else if (s.text == u"regex" && s.legacy) {
            // $regex:n|group$: pattern n of RegexList (1-based).
            const qsizetype bar = s.argument.indexOf(u'|');
            const int n = (bar < 0 ? s.argument : s.argument.left(bar)).toInt();
            const QString group = bar < 0 ? QStringLiteral("1") : s.argument.mid(bar + 1);
            if (n >= 1 && n <= answer.regexList.size())
                out += regexValue(body, answer.regexList.at(n - 1), group);
        } else if (s.text == u"regex") {
            const auto [pattern, group] = regexParts(s.argument);
            out += regexValue(body, pattern, group);
        }
    }
    return out;
}

QString jsonValue(const QByteArray &json, const QString &path)
{
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {};
    QJsonValue v = doc.isArray() ? QJsonValue(doc.array()) : QJsonValue(doc.object());
    QString p = path.trimmed();
    if (p.startsWith(u'$'))
        p.remove(0, 1);
    qsizetype i = 0;
    auto readName = [&p, &i] {
        const qsizetype start = i;
        while (i < p.size() && p.at(i) != u'.' && p.at(i) != u'[')
            ++i;
        return p.mid(start, i - start);
    };
    while (i < p.size()) {
        if (p.mid(i, 2) == u"..") {
            i += 2;
            QJsonValue found;
            if (!deepFind(v, readName(), &found))
                return {};
            v = found;
        } else if (p.at(i) == u'[') {
            const qsizetype close = p.indexOf(u']', i);
            if (close < 0)
                return {};
            QString inside = p.mid(i + 1, close - i - 1).trimmed();
            i = close + 1;
            bool numeric = false;
            const int index = inside.toInt(&numeric);
            if (numeric) {
                if (!v.isArray() || index < 0 || index >= v.toArray().size())
                    return {};
                v = v.toArray().at(index);
            } else {
                if (inside.size() >= 2 && (inside.startsWith(u'\'') || inside.startsWith(u'"')))
                    inside = inside.mid(1, inside.size() - 2);
                if (!v.isObject() || !v.toObject().contains(inside))
                    return {};
                v = v.toObject().value(inside);
            }
        } else {
            if (p.at(i) == u'.')
                ++i;
            const QString name = readName();
            if (name.isEmpty())
                continue;
            if (!v.isObject() || !v.toObject().contains(name))
                return {};
            v = v.toObject().value(name);
        }
    }
    return jsonText(v);
}

}  // namespace Placeholders
