// Uploads through the real client to a real HTTP server on 127.0.0.1: the built-in
// destinations, imported .sxcu destinations, the shortener, and every failure outcome.

#include "LoopbackServer.h"

#include "ApplicationHub.h"
#include "NotificationCenter.h"
#include "Settings.h"
#include "UploadProgress.h"
#include "UploadSession.h"
#include "UploaderCatalog.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QUrlQuery>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

class RecordingHub : public ApplicationHub
{
public:
    QStringList calls;
    bool offGuiThread = false;
    void note(const char *call)
    {
        offGuiThread = offGuiThread || QThread::currentThread() != qApp->thread();
        calls << QString::fromLatin1(call);
    }
    void togglePanel() override {}
    void openUploadPanel() override { note("open"); }
    void closeUploadPanel() override { note("close"); }
    void closeUploadPanelSlowly() override { note("closeSlowly"); }
    void splashWindow() override {}
    void splashWindowClose() override {}
    bool uploadBlocked() const override { return false; }
};

// A port that was bound a moment ago and is now closed: connections are refused.
int closedPort()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof addr;
    ::bind(fd, reinterpret_cast<sockaddr *>(&addr), sizeof addr);
    ::getsockname(fd, reinterpret_cast<sockaddr *>(&addr), &length);
    ::close(fd);
    return ntohs(addr.sin_port);
}

const QByteArray kImage = QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(300 * 1024, 'q');

}  // namespace

class UploadSessionTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void designProtocolThroughShortener_data();
    void designProtocolThroughShortener();
    void importedDestinations_data();
    void importedDestinations();
    void failures_data();
    void failures();
    void failingShortenerStillGivesDirectLink();
    void destroyingSessionEndsTransfer();

private:
    UploadOutcome runUpload(const QString &file = QString());
    void importDefinition(const QByteArray &json);

    LoopbackServer m_server;
    QTemporaryDir m_dir;
    QString m_imagePath;
    RecordingHub m_hub;
    QObject m_observer;
    QStringList m_notes;
    std::atomic<int> m_shortenerCalls{0};
    std::string m_lastShortened;
};

void UploadSessionTest::initTestCase()
{
    qRegisterMetaType<UploadOutcome>();
    QVERIFY(m_dir.isValid());
    m_imagePath = m_dir.filePath(QStringLiteral("Quillo 1.png"));
    QFile f(m_imagePath);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(kImage);
    f.close();

    httplib::Server &http = m_server.http();
    // The design protocol: key, fileupload, format=json; JSON answer with escaped slashes.
    http.Post("/upload_api.php", [](const httplib::Request &req, httplib::Response &res) {
        const bool right = req.get_file_value("key").content == "K3RZPWQ71b2c3d4e5f60718293a4b5c6d7e8f901"
            && req.get_file_value("format").content == "json" && req.has_file("fileupload")
            && req.get_file_value("fileupload").content == kImage.toStdString()
            && req.get_file_value("fileupload").filename == "Quillo 1.png";
        if (!right) {
            res.status = 400;
            res.set_content(R"({"error":"bad form"})", "application/json");
            return;
        }
        res.set_content(R"({"rating":{"ratings":0},"links":{"image_link":"http:\/\/img.example\/q\/abc.png","is_link":"x"}})",
                        "application/json");
    });
    http.Post("/create.php", [this](const httplib::Request &req, httplib::Response &res) {
        ++m_shortenerCalls;
        m_lastShortened = req.get_param_value("url");
        if (req.get_param_value("format") != "simple") {
            res.set_content("Error: format", "text/plain");
            return;
        }
        res.set_content("http://127.0.0.1:" + std::to_string(m_server.port()) + "/Zx1\n", "text/plain");
    });
    http.Post("/bad-create.php", [this](const httplib::Request &, httplib::Response &res) {
        ++m_shortenerCalls;
        res.set_content("Error: Please enter a valid URL to shorten", "text/plain");
    });
    http.Post("/json", [](const httplib::Request &req, httplib::Response &res) {
        res.set_content(req.has_file("image") ? R"({"files":[{"url":"https://cdn.example/j.png"}]})" : "{}",
                        "application/json");
    });
    http.Post("/regex", [](const httplib::Request &, httplib::Response &res) {
        res.set_content("<p>Your image: <a href=\"https://r.example/i/77.png\">here</a></p>", "text/html");
    });
    http.Put("/plain", [](const httplib::Request &req, httplib::Response &res) {
        const bool whole = req.body == kImage.toStdString() && req.get_header_value("Content-Type") == "image/png";
        res.set_content(whole ? "https://p.example/raw.png\n" : "no", "text/plain");
    });
    // Reads the body itself: the library refuses URL-encoded bodies over 8 KB otherwise.
    http.Post("/form", [](const httplib::Request &, httplib::Response &res, const httplib::ContentReader &read) {
        std::string body;
        read([&body](const char *data, size_t length) { body.append(data, length); return true; });
        const QUrlQuery form(QString::fromStdString(body));
        const QByteArray image = form.queryItemValue(QStringLiteral("image"), QUrl::FullyDecoded).toLatin1();
        const bool whole = QByteArray::fromBase64(image) == kImage
            && form.queryItemValue(QStringLiteral("name"), QUrl::FullyDecoded) == u"Quillo 1.png";
        res.set_content(whole ? R"({"data":{"url":"https://f.example/b.png"}})" : "{}", "application/json");
    });
    http.Post("/fail500", [](const httplib::Request &, httplib::Response &res) {
        res.status = 500;
        res.set_content(R"({"error":{"message":"disk full"}})", "application/json");
    });
    http.Post("/stall", [this](const httplib::Request &, httplib::Response &res) {
        m_server.holdBack(std::chrono::seconds(10));
        res.set_content("https://late.example/x.png", "text/plain");
    });
    http.Post("/malformed", [](const httplib::Request &, httplib::Response &res) {
        res.set_content(R"({"links":{"image_link":"http:\/\/img.ex)", "application/json");
    });
    http.Post("/huge", [](const httplib::Request &, httplib::Response &res) {
        res.set_content(std::string(2 * 1024 * 1024, 'h'), "text/plain");
    });
    http.Post("/nolink", [](const httplib::Request &, httplib::Response &res) {
        res.set_content(R"({"status":"ok","links":{}})", "application/json");
    });
    QVERIFY(m_server.start());

    ApplicationHub::setInstance(&m_hub);
    for (const QString &name : {Notifications::UploadBegins, Notifications::UploadSucceeded, Notifications::UploadFailed})
        NotificationCenter::defaultCenter().addObserver(name, &m_observer, [this](const QString &n) { m_notes << n; });

    // Destinations for the .sxcu cases, imported as a user would.
    importDefinition(QStringLiteral(R"({"Version":"15.0.0","Name":"Local JSON","DestinationType":"ImageUploader",
        "RequestMethod":"POST","RequestURL":"%1","Body":"MultipartFormData","FileFormName":"image",
        "URL":"{json:files[0].url}"})").arg(m_server.url("/json")).toUtf8());
    importDefinition(QStringLiteral(R"({"Name":"Local Regex","RequestURL":"%1","FileFormName":"f",
        "URL":"{regex:href=\"([^\"]+)\"|1}"})").arg(m_server.url("/regex")).toUtf8());
    importDefinition(QStringLiteral(R"({"Name":"Local Plain","RequestMethod":"PUT","RequestURL":"%1",
        "Body":"Binary","URL":"$response$"})").arg(m_server.url("/plain")).toUtf8());
    importDefinition(QStringLiteral(R"({"Name":"Local Form","RequestURL":"%1","Body":"FormURLEncoded",
        "Arguments":{"image":"{base64}","name":"{filename}"},"URL":"$json:data.url$"})").arg(m_server.url("/form")).toUtf8());
    for (const char *path : {"/fail500", "/stall", "/malformed", "/huge", "/nolink"})
        importDefinition(QStringLiteral(R"({"Name":"Local %1","RequestURL":"%2","FileFormName":"file",
            "URL":"{json:..image_link}","ErrorMessage":"{json:error.message}"})")
                             .arg(QLatin1String(path + 1), m_server.url(QLatin1String(path))).toUtf8());
}

void UploadSessionTest::cleanupTestCase()
{
    ApplicationHub::setInstance(nullptr);
    m_server.stop();
}

void UploadSessionTest::init()
{
    Settings::setValues({{Key::UploadConnectTimeout, 5}, {Key::UploadStallTimeout, 5},
                         {Key::UploadAnswerLimit, 64 * 1024}, {Key::ShortenerUrl, QString()},
                         {Key::LinkHost, QString()}, {Key::ImageHostUrl, m_server.url("/upload_api.php")},
                         {Key::ImageHostKey, QStringLiteral("K3RZPWQ71b2c3d4e5f60718293a4b5c6d7e8f901")}});
    m_notes.clear();
    m_hub.calls.clear();
    m_shortenerCalls = 0;
}

void UploadSessionTest::importDefinition(const QByteArray &json)
{
    QFile f(m_dir.filePath(QStringLiteral("import.sxcu")));
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(json);
    f.close();
    UploaderCatalog catalog;
    QString error;
    QVERIFY2(catalog.importFile(f.fileName(), &error), qPrintable(error));
}

UploadOutcome UploadSessionTest::runUpload(const QString &file)
{
    UploadSession session;
    QSignalSpy done(&session, &UploadSession::finished);
    if (!session.start(file.isEmpty() ? m_imagePath : file))
        return {};
    if (!done.wait(20000) || done.count() != 1)
        return {false, {}, {}, false, QStringLiteral("no finished signal")};
    QCoreApplication::processEvents();  // the delegate calls queued before finished
    return done.at(0).at(0).value<UploadOutcome>();
}

void UploadSessionTest::designProtocolThroughShortener_data()
{
    QTest::addColumn<QString>("linkHost");
    QTest::addColumn<QString>("product");
    QTest::newRow("link host set") << "quillo.example" << "quillo.example/?x=Zx1";
    QTest::newRow("link host unset") << "" << QStringLiteral("127.0.0.1:%1/Zx1").arg(m_server.port());
}

void UploadSessionTest::designProtocolThroughShortener()
{
    QFETCH(QString, linkHost);
    QFETCH(QString, product);
    Settings::setValues({{Key::Uploader, QStringLiteral("ImageShack API")},
                         {Key::ShortenerUrl, m_server.url("/create.php")}, {Key::LinkHost, linkHost}});
    const UploadOutcome outcome = runUpload();
    QVERIFY2(outcome.ok, qPrintable(outcome.error));
    QCOMPARE(outcome.directLink, QStringLiteral("http://img.example/q/abc.png"));
    QCOMPARE(m_lastShortened, std::string("http://img.example/q/abc.png"));
    QVERIFY(outcome.shortened);
    QCOMPARE(outcome.productLink, product);
    QCOMPARE(m_notes, QStringList({Notifications::UploadBegins, Notifications::UploadSucceeded}));
    QCOMPARE(m_hub.calls, QStringList{QStringLiteral("open")});
    QVERIFY(!m_hub.offGuiThread);
    QCOMPARE(uploadPercent().load(), 0.0);  // reset after a success
}

void UploadSessionTest::importedDestinations_data()
{
    QTest::addColumn<QString>("uploader");
    QTest::addColumn<QString>("link");
    QTest::newRow("JSON path") << "Local JSON" << "https://cdn.example/j.png";
    QTest::newRow("regex") << "Local Regex" << "https://r.example/i/77.png";
    QTest::newRow("plain answer, binary PUT") << "Local Plain" << "https://p.example/raw.png";
    QTest::newRow("URL-encoded form, legacy JSON") << "Local Form" << "https://f.example/b.png";
}

void UploadSessionTest::importedDestinations()
{
    QFETCH(QString, uploader);
    QFETCH(QString, link);
    Settings::setValue(Key::Uploader, uploader);
    const UploadOutcome outcome = runUpload();
    QVERIFY2(outcome.ok, qPrintable(outcome.error));
    QCOMPARE(outcome.directLink, link);
    QCOMPARE(outcome.productLink, link);  // no shortener configured
    QVERIFY(!outcome.shortened);
    QCOMPARE(m_notes, QStringList({Notifications::UploadBegins, Notifications::UploadSucceeded}));
}

void UploadSessionTest::failures_data()
{
    QTest::addColumn<QString>("uploader");
    QTest::addColumn<QString>("imageHostUrl");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("errorPart");

    const QString refused = QStringLiteral("http://127.0.0.1:%1/upload_api.php").arg(closedPort());

    QTest::newRow("connection refused") << "ImageShack API" << refused << "" << "";
    QTest::newRow("no image host configured") << "ImageShack API" << "" << "" << "not an http";
    QTest::newRow("HTTP 500 with error message") << "Local fail500" << "" << "" << "disk full";
    QTest::newRow("stalled server") << "Local stall" << "" << "" << "no data moved";
    QTest::newRow("malformed answer") << "Local malformed" << "" << "" << "no link";
    QTest::newRow("answer over the cap") << "Local huge" << "" << "" << "larger than";
    QTest::newRow("answer without a link") << "Local nolink" << "" << "" << "no link";
    QTest::newRow("missing file") << "Local JSON" << "" << "/nonexistent/shot.png" << "";
    QTest::newRow("unknown destination") << "Nowhere" << "" << "" << "Nowhere";
}

void UploadSessionTest::failures()
{
    QFETCH(QString, uploader);
    QFETCH(QString, imageHostUrl);
    QFETCH(QString, file);
    QFETCH(QString, errorPart);
    Settings::setValues({{Key::Uploader, uploader}, {Key::UploadStallTimeout, 1},
                         {Key::ShortenerUrl, m_server.url("/create.php")}});
    if (uploader == u"ImageShack API")
        Settings::setValue(Key::ImageHostUrl, imageHostUrl);
    const UploadOutcome outcome = runUpload(file);
    QVERIFY(!outcome.ok);
    QVERIFY(outcome.directLink.isEmpty() && outcome.productLink.isEmpty());
    QVERIFY2(!outcome.error.isEmpty() && outcome.error != u"no finished signal", qPrintable(outcome.error));
    QVERIFY2(outcome.error.contains(errorPart), qPrintable(outcome.error));
    QCOMPARE(m_notes, QStringList({Notifications::UploadBegins, Notifications::UploadFailed}));
    QCOMPARE(m_hub.calls, QStringList({QStringLiteral("open"), QStringLiteral("closeSlowly")}));
    QCOMPARE(m_shortenerCalls.load(), 0);
}

void UploadSessionTest::failingShortenerStillGivesDirectLink()
{
    Settings::setValues({{Key::Uploader, QStringLiteral("ImageShack API")},
                         {Key::ShortenerUrl, m_server.url("/bad-create.php")}, {Key::LinkHost, QStringLiteral("quillo.example")}});
    const UploadOutcome outcome = runUpload();
    QVERIFY(outcome.ok);
    QCOMPARE(m_shortenerCalls.load(), 1);
    QVERIFY(!outcome.shortened);
    QCOMPARE(outcome.productLink, QStringLiteral("http://img.example/q/abc.png"));
    QCOMPARE(m_notes, QStringList({Notifications::UploadBegins, Notifications::UploadSucceeded}));
}

void UploadSessionTest::destroyingSessionEndsTransfer()
{
    // Quitting during an upload must not wait for a stalled server.
    Settings::setValues({{Key::Uploader, QStringLiteral("Local stall")}, {Key::UploadStallTimeout, 60}});
    auto session = std::make_unique<UploadSession>();
    QSignalSpy done(session.get(), &UploadSession::finished);
    QVERIFY(session->start(m_imagePath));
    QVERIFY(session->isRunning());
    QVERIFY(!session->start(m_imagePath));  // one upload at a time
    QTest::qWait(300);
    session.reset();  // cancels and joins
    QCoreApplication::processEvents();
    QCOMPARE(done.count(), 0);
}

QTEST_GUILESS_MAIN(UploadSessionTest)
#include "test_upload_session.moc"
