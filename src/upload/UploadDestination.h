#pragma once
// One upload destination, read from a custom-uploader definition (.sxcu JSON): where the
// file goes, how it is sent, and how the link is read from the answer.

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <optional>

#include "Placeholders.h"

enum class UploadBody { MultipartFormData, FormURLEncoded, Binary };

struct UploadDestination {
    using Pairs = QList<QPair<QString, QString>>;

    QString name;
    QString method = QStringLiteral("POST");
    QString requestUrl;
    Pairs parameters;  // query string
    Pairs headers;
    UploadBody body = UploadBody::MultipartFormData;
    Pairs arguments;   // form fields; a value of exactly "{base64}" is the file, base64-encoded
    QString fileFormName;
    QString urlTemplate = QStringLiteral("{response}");
    QString errorTemplate;
    QStringList regexList;
    QString sourcePath;  // the file it was read from

    // Reads a definition; on failure answers nothing and says why in *error.
    static std::optional<UploadDestination> fromJson(const QByteArray &json, QString *error);
    static std::optional<UploadDestination> fromFile(const QString &path, QString *error);

    // The request fields with {setting:key} and {filename} filled in (GUI thread:
    // the lookup reads settings).
    UploadDestination resolved(const Placeholders::SettingLookup &setting, const QString &fileName) const;
};
