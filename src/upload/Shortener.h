#pragma once
// Link shortening through a create.php-style service (POST format=simple and url; the
// answer is the short link as plain text) and the product link made from it.

#include "HttpTransfer.h"

#include <QString>
#include <optional>

struct ShortenerConfig {
    QString serviceUrl;  // empty: no shortening
    QString linkHost;    // empty: the product link is the short link without its scheme
};

namespace Shortener {

struct ShortLink {
    QString link;  // as the service answered it
    QString code;  // what follows "<scheme>://<authority>/"
};

TransferRequest request(const QString &serviceUrl, const QString &link);

// The short link in a service answer: http:// or https://, then the service's own host and
// port (with or without "www."), then "/" and a code. Anything else (an answer starting with
// "Error", HTML, an empty answer) is no short link.
std::optional<ShortLink> parseAnswer(const QByteArray &answer, const QString &serviceUrl);

// "<link host>/?x=<code>" when a link host is set, else the short link without its scheme.
QString productLink(const ShortLink &shortLink, const QString &linkHost);

}  // namespace Shortener
