#include "HttpTransfer.h"

#include "CurlHandles.h"
#include "UploadProgress.h"

#include <QFile>
#include <QUrl>
#include <QUrlQuery>
#include <chrono>
#include <cstdio>
#include <memory>

namespace {

struct FileCloser { void operator()(std::FILE *f) const { std::fclose(f); } };
using File = std::unique_ptr<std::FILE, FileCloser>;

struct Exchange {
    TransferResult *result;
    qint64 limit;
    const std::atomic<bool> *cancel;
    bool reportsProgress;
    std::chrono::seconds stallLimit;
    curl_off_t movedSoFar = 0;
    std::chrono::steady_clock::time_point lastMove = std::chrono::steady_clock::now();
    bool stalled = false;
};

size_t onBody(char *data, size_t size, size_t count, void *user)
{
    auto *x = static_cast<Exchange *>(user);
    const size_t n = size * count;
    if (x->result->body.size() + qint64(n) > x->limit) {
        x->result->answerTooLarge = true;
        return 0;  // ends the transfer with a write error
    }
    x->result->body.append(data, qsizetype(n));
    return n;
}

size_t onHeader(char *data, size_t size, size_t count, void *user)
{
    auto *x = static_cast<Exchange *>(user);
    const size_t n = size * count;
    const QByteArray line = QByteArray(data, qsizetype(n)).trimmed();
    if (line.startsWith("HTTP/"))
        x->result->headers.clear();  // a new answer (after 100 Continue, say)
    const qsizetype colon = line.indexOf(':');
    if (colon > 0 && x->result->headers.size() < 200)
        x->result->headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    return n;
}

int onProgress(void *user, curl_off_t, curl_off_t downNow, curl_off_t upTotal, curl_off_t upNow)
{
    auto *x = static_cast<Exchange *>(user);
    if (x->cancel && x->cancel->load())
        return 1;
    // libcurl's own low-speed check averages over several seconds; this one ends the
    // transfer as soon as no byte has moved for the stall time.
    const auto now = std::chrono::steady_clock::now();
    const curl_off_t moved = upNow + downNow;
    if (moved != x->movedSoFar) {
        x->movedSoFar = moved;
        x->lastMove = now;
    } else if (now - x->lastMove >= x->stallLimit) {
        x->stalled = true;
        return 1;
    }
    if (x->reportsProgress && upTotal > 0)
        uploadPercent().store(double(upNow) * 100.0 / double(upTotal));
    return 0;
}

size_t readFile(char *buffer, size_t size, size_t count, void *user)
{
    return std::fread(buffer, size, count, static_cast<std::FILE *>(user));
}

TransferResult failed(const QString &why)
{
    TransferResult r;
    r.error = why;
    return r;
}

}  // namespace

TransferRequest uploadRequest(const UploadDestination &d, const QString &filePath, const QString &contentType)
{
    TransferRequest r;
    r.method = d.method;
    QUrl url(d.requestUrl);
    if (!d.parameters.isEmpty()) {
        QUrlQuery query(url);
        for (const auto &[key, value] : d.parameters)
            query.addQueryItem(key, value);
        url.setQuery(query);
    }
    r.url = url.toString(QUrl::FullyEncoded);
    r.headers = d.headers;
    r.body = d.body;
    for (const auto &[key, value] : d.arguments)
        r.fields.append({key, value, value == u"{base64}"});
    r.fileFormName = d.fileFormName;
    r.filePath = filePath;
    r.fileContentType = contentType;
    r.reportsProgress = true;
    return r;
}

TransferResult performTransfer(const TransferRequest &request, const TransferLimits &limits,
                               const std::atomic<bool> *cancel)
{
    if (!Curl::ensureGlobalInit())
        return failed(QStringLiteral("libcurl could not be initialised"));
    const QUrl url(request.url, QUrl::StrictMode);
    if (!url.isValid() || (url.scheme() != u"https" && url.scheme() != u"http") || url.host().isEmpty())
        return failed(QStringLiteral("not an http(s) address: \"%1\"").arg(request.url));
    Curl::Easy easy(curl_easy_init());
    if (!easy)
        return failed(QStringLiteral("libcurl could not make a handle"));
    CURL *h = easy.get();

    TransferResult result;
    const long stallSeconds = qMax(1, limits.stallTimeoutSeconds);
    Exchange exchange{&result, limits.answerLimit, cancel, request.reportsProgress,
                      std::chrono::seconds(stallSeconds)};
    const QByteArray urlBytes = request.url.toUtf8();
    curl_easy_setopt(h, CURLOPT_URL, urlBytes.constData());
    curl_easy_setopt(h, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(h, CURLOPT_SSL_VERIFYHOST, 2L);
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, long(qMax(1, limits.connectTimeoutSeconds)));
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_TIME, stallSeconds);
    curl_easy_setopt(h, CURLOPT_TIMEOUT, long(qMax(1, limits.totalTimeoutSeconds)));
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &exchange);
    curl_easy_setopt(h, CURLOPT_HEADERFUNCTION, onHeader);
    curl_easy_setopt(h, CURLOPT_HEADERDATA, &exchange);
    curl_easy_setopt(h, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(h, CURLOPT_XFERINFOFUNCTION, onProgress);
    curl_easy_setopt(h, CURLOPT_XFERINFODATA, &exchange);

    Curl::HeaderList headers;
    bool hasContentType = false;
    for (const auto &[key, value] : request.headers) {
        hasContentType = hasContentType || key.compare(u"Content-Type", Qt::CaseInsensitive) == 0;
        headers.append(QStringLiteral("%1: %2").arg(key, value).toUtf8().constData());
    }

    Curl::Mime mime;
    File file;
    QByteArray formBody;
    if (request.body == UploadBody::MultipartFormData) {
        mime.reset(curl_mime_init(h));
        for (const TransferField &f : request.fields) {
            curl_mimepart *part = curl_mime_addpart(mime.get());
            curl_mime_name(part, f.name.toUtf8().constData());
            const QByteArray value = f.value.toUtf8();
            curl_mime_data(part, value.constData(), size_t(value.size()));
        }
        if (!request.fileFormName.isEmpty()) {
            if (!QFile::exists(request.filePath))
                return failed(QStringLiteral("no file %1").arg(request.filePath));
            curl_mimepart *part = curl_mime_addpart(mime.get());
            curl_mime_name(part, request.fileFormName.toUtf8().constData());
            if (curl_mime_filedata(part, QFile::encodeName(request.filePath).constData()) != CURLE_OK)
                return failed(QStringLiteral("cannot read %1").arg(request.filePath));
        }
        curl_easy_setopt(h, CURLOPT_MIMEPOST, mime.get());
    } else if (request.body == UploadBody::FormURLEncoded) {
        QUrlQuery form;
        for (const TransferField &f : request.fields) {
            QString value = f.value;
            if (f.fileAsBase64) {
                QFile source(request.filePath);
                if (!source.open(QIODevice::ReadOnly))
                    return failed(QStringLiteral("cannot read %1").arg(request.filePath));
                value = QString::fromLatin1(source.readAll().toBase64());
            }
            form.addQueryItem(QString::fromUtf8(QUrl::toPercentEncoding(f.name)),
                              QString::fromUtf8(QUrl::toPercentEncoding(value)));
        }
        formBody = form.query(QUrl::FullyEncoded).toUtf8();
        curl_easy_setopt(h, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(formBody.size()));
        curl_easy_setopt(h, CURLOPT_POSTFIELDS, formBody.constData());
    } else {
        file.reset(std::fopen(QFile::encodeName(request.filePath).constData(), "rb"));
        if (!file)
            return failed(QStringLiteral("cannot read %1").arg(request.filePath));
        const curl_off_t size = curl_off_t(QFile(request.filePath).size());
        curl_easy_setopt(h, CURLOPT_READFUNCTION, readFile);
        curl_easy_setopt(h, CURLOPT_READDATA, file.get());
        if (request.method == u"POST") {
            curl_easy_setopt(h, CURLOPT_POST, 1L);
            curl_easy_setopt(h, CURLOPT_POSTFIELDSIZE_LARGE, size);
        } else {
            curl_easy_setopt(h, CURLOPT_UPLOAD, 1L);
            curl_easy_setopt(h, CURLOPT_INFILESIZE_LARGE, size);
        }
        if (!hasContentType && !request.fileContentType.isEmpty())
            headers.append(("Content-Type: " + request.fileContentType).toUtf8().constData());
    }
    const QByteArray method = request.method.toUtf8();
    if (request.method != u"POST" && !(request.body == UploadBody::Binary && request.method == u"PUT"))
        curl_easy_setopt(h, CURLOPT_CUSTOMREQUEST, method.constData());
    curl_easy_setopt(h, CURLOPT_HTTPHEADER, headers.get());

    char errorText[CURL_ERROR_SIZE] = {};
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, errorText);
    const CURLcode code = curl_easy_perform(h);
    curl_easy_getinfo(h, CURLINFO_RESPONSE_CODE, &result.httpStatus);
    result.completed = code == CURLE_OK;
    if (result.answerTooLarge)
        result.error = QStringLiteral("the answer is larger than %1 bytes").arg(limits.answerLimit);
    else if (exchange.stalled)
        result.error = QStringLiteral("no data moved for %1 s").arg(stallSeconds);
    else if (code != CURLE_OK)
        result.error = QString::fromUtf8(errorText[0] ? errorText : curl_easy_strerror(code));
    else if (!result.succeeded())
        result.error = QStringLiteral("HTTP status %1").arg(result.httpStatus);
    return result;
}
