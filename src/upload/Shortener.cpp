#include "Shortener.h"

#include <QRegularExpression>
#include <QUrl>

namespace Shortener {

namespace {
QString bareHost(const QUrl &url)
{
    QString host = url.host().toLower();
    if (host.startsWith(QLatin1String("www.")))
        host.remove(0, 4);
    return host;
}
}  // namespace

TransferRequest request(const QString &serviceUrl, const QString &link)
{
    TransferRequest r;
    r.url = serviceUrl;
    r.body = UploadBody::FormURLEncoded;
    r.fields = {{QStringLiteral("format"), QStringLiteral("simple"), false},
                {QStringLiteral("url"), link, false}};
    return r;
}

std::optional<ShortLink> parseAnswer(const QByteArray &answer, const QString &serviceUrl)
{
    const QString text = QString::fromUtf8(answer).trimmed();
    const QUrl service(serviceUrl);
    if (!service.isValid() || service.host().isEmpty())
        return std::nullopt;
    for (const QString &scheme : {QStringLiteral("https://"), QStringLiteral("http://")}) {
        if (!text.startsWith(scheme))
            continue;
        const qsizetype slash = text.indexOf(u'/', scheme.size());
        if (slash < 0)
            return std::nullopt;
        const QString code = text.mid(slash + 1);
        const QUrl link(text, QUrl::StrictMode);
        const bool simple = !code.isEmpty() && !text.contains(QRegularExpression(QStringLiteral("\\s")));
        if (!simple || !link.isValid() || link.userInfo() != QString()
            || bareHost(link) != bareHost(service) || link.port(-1) != service.port(-1))
            return std::nullopt;
        return ShortLink{text, code};
    }
    return std::nullopt;
}

QString productLink(const ShortLink &shortLink, const QString &linkHost)
{
    QString host = linkHost.trimmed();
    while (host.endsWith(u'/'))
        host.chop(1);
    if (!host.isEmpty())
        return host + QStringLiteral("/?x=") + shortLink.code;
    const qsizetype schemeEnd = shortLink.link.indexOf(QLatin1String("://"));
    return shortLink.link.mid(schemeEnd + 3);
}

}  // namespace Shortener
