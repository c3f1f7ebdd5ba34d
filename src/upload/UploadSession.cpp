#include "UploadSession.h"

#include "ApplicationHub.h"
#include "NotificationCenter.h"
#include "Settings.h"
#include "UploadProgress.h"
#include "UploaderCatalog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPointer>
#include <QRegularExpression>
#include <QUrl>

struct UploadSession::Job {
    QString filePath;
    UploadDestination destination;  // request fields resolved
    UploadOptions options;
    QString contentType;
    QString presetError;  // set when the upload cannot even start
    std::shared_ptr<std::atomic<bool>> cancel;
    QPointer<UploadSession> session;
};

namespace {

void onGuiThread(std::function<void()> work)
{
    if (QCoreApplication *app = QCoreApplication::instance())
        QMetaObject::invokeMethod(app, std::move(work), Qt::QueuedConnection);
}

void askDelegate(void (ApplicationHub::*call)())
{
    onGuiThread([call] {
        if (ApplicationHub *hub = ApplicationHub::instance())
            (hub->*call)();
    });
}

}  // namespace

bool isWebLink(const QString &link)
{
    const QUrl url(link, QUrl::StrictMode);
    return url.isValid() && (url.scheme() == u"https" || url.scheme() == u"http") && !url.host().isEmpty()
        && !link.contains(QRegularExpression(QStringLiteral("\\s")));
}

UploadOptions UploadOptions::fromSettings()
{
    UploadOptions o;
    o.limits.connectTimeoutSeconds = Settings::intValue(Key::UploadConnectTimeout);
    o.limits.stallTimeoutSeconds = Settings::intValue(Key::UploadStallTimeout);
    o.limits.totalTimeoutSeconds = Settings::intValue(Key::UploadTotalTimeout);
    o.limits.answerLimit = qMax(1, Settings::intValue(Key::UploadAnswerLimit));
    o.shortener.serviceUrl = Settings::stringValue(Key::ShortenerUrl).trimmed();
    o.shortener.linkHost = Settings::stringValue(Key::LinkHost).trimmed();
    return o;
}

namespace {
int g_sessionsRunning = 0;  // GUI thread only
}

UploadSession::UploadSession(QObject *parent) : QObject(parent) {}

UploadSession::~UploadSession()
{
    if (m_cancel)
        m_cancel->store(true);
    if (m_worker.joinable())
        m_worker.join();
    if (m_running)
        --g_sessionsRunning;
}

bool UploadSession::anyRunning()
{
    return g_sessionsRunning > 0;
}

bool UploadSession::start(const QString &filePath)
{
    const QString name = Settings::stringValue(Key::Uploader);
    const UploaderCatalog catalog;
    if (auto destination = catalog.find(name))
        return start(filePath, *destination, UploadOptions::fromSettings());
    if (m_running)
        return false;
    auto job = std::make_shared<Job>();
    job->presetError = QStringLiteral("no upload destination named \"%1\"").arg(name);
    launch(job);
    return true;
}

bool UploadSession::start(const QString &filePath, const UploadDestination &destination, const UploadOptions &options)
{
    if (m_running)
        return false;
    auto job = std::make_shared<Job>();
    job->filePath = filePath;
    const auto setting = [](const QString &key) { return Settings::stringValue(key.toLatin1().constData()); };
    job->destination = destination.resolved(setting, QFileInfo(filePath).fileName());
    job->options = options;
    if (destination.body == UploadBody::Binary)  // multipart parts get libcurl's own type
        job->contentType = QMimeDatabase().mimeTypeForFile(filePath, QMimeDatabase::MatchExtension).name();
    launch(job);
    return true;
}

void UploadSession::launch(std::shared_ptr<Job> job)
{
    if (m_worker.joinable())
        m_worker.join();  // the previous upload has delivered; its thread is ending
    m_cancel = std::make_shared<std::atomic<bool>>(false);
    job->cancel = m_cancel;
    job->session = this;
    m_running = true;
    ++g_sessionsRunning;
    m_worker = std::thread([job] {
        NotificationCenter &center = NotificationCenter::defaultCenter();
        uploadPercent().store(0.0);
        // The panel is asked for first: made on first use, it must exist to see the start.
        askDelegate(&ApplicationHub::openUploadPanel);
        center.post(Notifications::UploadBegins);

        UploadOutcome outcome;
        outcome.error = job->presetError;
        if (outcome.error.isEmpty()) {
            const TransferResult answer = performTransfer(
                uploadRequest(job->destination, job->filePath, job->contentType), job->options.limits,
                job->cancel.get());
            Placeholders::Answer parsed{answer.body, answer.headers, QFileInfo(job->filePath).fileName(),
                                        job->destination.regexList};
            if (answer.succeeded()) {
                const QString link = Placeholders::expandAnswer(job->destination.urlTemplate, parsed).trimmed();
                if (isWebLink(link))
                    outcome.directLink = link;
                else
                    outcome.error = QStringLiteral("no link in the answer");
            } else {
                outcome.error = answer.error;
                if (answer.completed && !job->destination.errorTemplate.isEmpty()) {
                    const QString told = Placeholders::expandAnswer(job->destination.errorTemplate, parsed).trimmed();
                    if (!told.isEmpty())
                        outcome.error += QStringLiteral(": ") + told.left(500);
                }
            }
        }

        if (outcome.directLink.isEmpty()) {
            center.post(Notifications::UploadFailed);
            askDelegate(&ApplicationHub::closeUploadPanelSlowly);
        } else {
            outcome.ok = true;
            outcome.error.clear();
            center.post(Notifications::UploadSucceeded);
            outcome.productLink = outcome.directLink;
            const ShortenerConfig &shortener = job->options.shortener;
            if (!shortener.serviceUrl.isEmpty()) {
                const TransferResult answer = performTransfer(
                    Shortener::request(shortener.serviceUrl, outcome.directLink), job->options.limits,
                    job->cancel.get());
                const auto shortLink = answer.succeeded()
                    ? Shortener::parseAnswer(answer.body, shortener.serviceUrl) : std::nullopt;
                if (shortLink) {
                    outcome.productLink = Shortener::productLink(*shortLink, shortener.linkHost);
                    outcome.shortened = true;
                }
            }
        }
        onGuiThread([session = job->session, outcome] {
            if (session)
                session->deliver(outcome);
        });
    });
}

void UploadSession::deliver(const UploadOutcome &outcome)
{
    m_running = false;
    --g_sessionsRunning;
    if (outcome.ok)
        uploadPercent().store(0.0);
    emit finished(outcome);
}
