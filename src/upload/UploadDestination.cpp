#include "UploadDestination.h"

#include "SettingsKeys.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr qint64 kMaxDefinitionSize = 256 * 1024;

bool readPairs(const QJsonObject &root, const char *field, UploadDestination::Pairs *out, QString *error)
{
    const QJsonValue v = root.value(QLatin1String(field));
    if (v.isUndefined() || v.isNull())
        return true;
    if (!v.isObject()) {
        *error = QStringLiteral("%1 must be an object of names and texts").arg(QLatin1String(field));
        return false;
    }
    const QJsonObject o = v.toObject();
    for (auto it = o.begin(); it != o.end(); ++it) {
        if (!it.value().isString() && !it.value().isDouble() && !it.value().isBool()) {
            *error = QStringLiteral("%1 \"%2\" must be a text").arg(QLatin1String(field), it.key());
            return false;
        }
        out->append({it.key(), it.value().toVariant().toString()});
    }
    return true;
}

bool checkField(const QString &text, Placeholders::Field kind, const QString &where, QString *error)
{
    const QString problem = Placeholders::check(text, kind);
    if (problem.isEmpty())
        return true;
    *error = QStringLiteral("%1: %2").arg(where, problem);
    return false;
}

// Definitions may read only the image host's own settings: nothing else leaves the machine.
bool checkSettingKeys(const QString &text, const QString &where, QString *error)
{
    const QStringList readable = {QLatin1String(Key::ImageHostUrl), QLatin1String(Key::ImageHostKey)};
    for (const Placeholders::Segment &s : Placeholders::split(text))
        if (s.isPlaceholder && s.text == u"setting" && !readable.contains(s.argument)) {
            *error = QStringLiteral("%1: setting \"%2\" cannot be used (only %3)").arg(where, s.argument, readable.join(u", "));
            return false;
        }
    return true;
}

QString text(const QJsonObject &root, const char *field)
{
    return root.value(QLatin1String(field)).toString();
}

}  // namespace

std::optional<UploadDestination> UploadDestination::fromJson(const QByteArray &json, QString *error)
{
    QString scratch;
    QString &why = error ? *error : scratch;
    QJsonParseError parseError{};
    const QJsonDocument doc = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError || !doc.isObject()) {
        why = QStringLiteral("not a JSON object (%1)").arg(parseError.errorString());
        return std::nullopt;
    }
    const QJsonObject root = doc.object();
    UploadDestination d;
    d.name = text(root, "Name").trimmed();
    if (d.name.isEmpty()) {
        why = QStringLiteral("Name is missing");
        return std::nullopt;
    }

    const QString type = text(root, "DestinationType");
    if (!type.isEmpty() && !type.contains(QLatin1String("ImageUploader")) && !type.contains(QLatin1String("FileUploader"))) {
        why = QStringLiteral("DestinationType \"%1\" does not take images").arg(type);
        return std::nullopt;
    }

    d.method = text(root, "RequestMethod").trimmed().toUpper();
    if (d.method.isEmpty())
        d.method = text(root, "RequestType").trimmed().toUpper();  // older files
    if (d.method.isEmpty())
        d.method = QStringLiteral("POST");
    if (d.method != u"POST" && d.method != u"PUT" && d.method != u"PATCH") {
        why = QStringLiteral("RequestMethod %1 cannot send a file").arg(d.method);
        return std::nullopt;
    }

    d.requestUrl = text(root, "RequestURL").trimmed();
    if (d.requestUrl.isEmpty()) {
        why = QStringLiteral("RequestURL is missing");
        return std::nullopt;
    }

    const QString body = text(root, "Body");
    if (body.isEmpty() || body == u"MultipartFormData") {
        d.body = UploadBody::MultipartFormData;
    } else if (body == u"FormURLEncoded") {
        d.body = UploadBody::FormURLEncoded;
    } else if (body == u"Binary") {
        d.body = UploadBody::Binary;
    } else {
        why = QStringLiteral("Body \"%1\" is not supported (MultipartFormData, FormURLEncoded or Binary)").arg(body);
        return std::nullopt;
    }
    if (root.contains(QLatin1String("Data")) && !text(root, "Data").isEmpty()) {
        why = QStringLiteral("Data bodies are not supported");
        return std::nullopt;
    }

    if (!readPairs(root, "Parameters", &d.parameters, &why) || !readPairs(root, "Headers", &d.headers, &why)
        || !readPairs(root, "Arguments", &d.arguments, &why))
        return std::nullopt;

    d.fileFormName = text(root, "FileFormName").trimmed();
    if (d.body == UploadBody::MultipartFormData && d.fileFormName.isEmpty()) {
        why = QStringLiteral("FileFormName is missing");
        return std::nullopt;
    }

    if (root.contains(QLatin1String("URL")))
        d.urlTemplate = text(root, "URL").trimmed();
    if (d.urlTemplate.isEmpty())
        d.urlTemplate = QStringLiteral("{response}");
    d.errorTemplate = text(root, "ErrorMessage");
    for (const QJsonValue &v : root.value(QLatin1String("RegexList")).toArray())
        d.regexList.append(v.toString());

    // Every placeholder is checked now, so none fails later during an upload.
    using Placeholders::Field;
    bool ok = checkField(d.requestUrl, Field::Request, QStringLiteral("RequestURL"), &why)
        && checkSettingKeys(d.requestUrl, QStringLiteral("RequestURL"), &why);
    bool fileSent = d.body != UploadBody::FormURLEncoded;
    for (const Pairs *pairs : {&d.parameters, &d.headers, &d.arguments}) {
        for (const auto &[key, value] : *pairs) {
            ok = ok && checkField(value, Field::Request, key, &why) && checkSettingKeys(value, key, &why);
            const bool wholeFile = value == u"{base64}";
            if (ok && !wholeFile && value.contains(QLatin1String("{base64}"))) {
                why = QStringLiteral("%1: {base64} must be the whole value").arg(key);
                ok = false;
            }
            if (ok && wholeFile && pairs != &d.arguments) {
                why = QStringLiteral("%1: {base64} is only allowed in Arguments").arg(key);
                ok = false;
            }
            if (ok && wholeFile && d.body != UploadBody::FormURLEncoded) {
                why = QStringLiteral("%1: {base64} is only allowed with a FormURLEncoded body").arg(key);
                ok = false;
            }
            fileSent = fileSent || wholeFile;
        }
    }
    ok = ok && checkField(d.urlTemplate, Field::Answer, QStringLiteral("URL"), &why)
        && checkField(d.errorTemplate, Field::Answer, QStringLiteral("ErrorMessage"), &why);
    if (ok && d.body == UploadBody::Binary && !d.arguments.isEmpty()) {
        why = QStringLiteral("Arguments cannot be sent with a Binary body (use Parameters)");
        ok = false;
    }
    if (ok && !fileSent) {
        why = QStringLiteral("FormURLEncoded bodies must send the file as a {base64} argument");
        ok = false;
    }
    if (!ok)
        return std::nullopt;
    return d;
}

std::optional<UploadDestination> UploadDestination::fromFile(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("cannot read %1").arg(path);
        return std::nullopt;
    }
    if (file.size() > kMaxDefinitionSize) {
        if (error)
            *error = QStringLiteral("%1 is too large for an uploader definition").arg(path);
        return std::nullopt;
    }
    auto d = fromJson(file.readAll(), error);
    if (d)
        d->sourcePath = path;
    return d;
}

UploadDestination UploadDestination::resolved(const Placeholders::SettingLookup &setting, const QString &fileName) const
{
    UploadDestination d = *this;
    auto fill = [&](QString &s) { s = Placeholders::expandRequest(s, setting, fileName); };
    fill(d.requestUrl);
    for (Pairs *pairs : {&d.parameters, &d.headers, &d.arguments})
        for (auto &pair : *pairs)
            if (pair.second != u"{base64}")
                fill(pair.second);
    return d;
}
