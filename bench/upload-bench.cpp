// Helper of bench-upload.sh:
//   upload-bench serve PORTFILE   loopback HTTP server that reads and drops uploads
//   upload-bench upload URL FILE  one upload through Quillo's upload client; prints ms
//   upload-bench history N        rebuilds an N-link history and its pop-up; prints ms

#include "CurlHandles.h"
#include "LinkHistory.h"
#include "LinkListModel.h"
#include "Settings.h"
#include "UploadSession.h"

#include <httplib.h>

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <cstdio>

namespace {

int serve(const char *portFile)
{
    httplib::Server server;
    server.Post("/upload", [](const httplib::Request &req, httplib::Response &res) {
        res.set_content("https://bench.example/" + std::to_string(req.get_file_value("file").content.size()) + ".png",
                        "text/plain");
    });
    const int port = server.bind_to_any_port("127.0.0.1");
    if (port <= 0)
        return 1;
    if (std::FILE *f = std::fopen(portFile, "w")) {
        std::fprintf(f, "%d\n", port);
        std::fclose(f);
    }
    return server.listen_after_bind() ? 0 : 1;
}

int upload(int argc, char **argv, const QString &url, const QString &file)
{
    QCoreApplication app(argc, argv);
    const QByteArray json = QStringLiteral(R"({"Name":"Bench","RequestURL":"%1","FileFormName":"file"})").arg(url).toUtf8();
    const auto destination = UploadDestination::fromJson(json, nullptr);
    UploadOptions options;  // no shortener
    UploadSession session;
    Curl::ensureGlobalInit();  // once per process, outside curl's own time_total as well
    QElapsedTimer clock;
    int status = 1;
    QObject::connect(&session, &UploadSession::finished, &app, [&](const UploadOutcome &outcome) {
        std::printf("%.1f\n", clock.nsecsElapsed() / 1e6);
        status = outcome.ok ? 0 : 2;
        app.quit();
    });
    clock.start();
    session.start(file, *destination, options);
    app.exec();
    return status;
}

// The transfer alone, without the session around it.
int raw(const QString &url, const QString &file)
{
    const QByteArray json = QStringLiteral(R"({"Name":"Bench","RequestURL":"%1","FileFormName":"file"})").arg(url).toUtf8();
    const auto destination = UploadDestination::fromJson(json, nullptr);
    Curl::ensureGlobalInit();
    QElapsedTimer clock;
    clock.start();
    const TransferResult r = performTransfer(uploadRequest(*destination, file, QString()), TransferLimits());
    std::printf("%.1f\n", clock.nsecsElapsed() / 1e6);
    return r.succeeded() ? 0 : 2;
}

int history(int argc, char **argv, int n)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList links;
    for (int i = 0; i < n; ++i)
        links << QStringLiteral("quillo.example/?x=%1").arg(i, 6, 36, QLatin1Char('0'));
    Settings::setValues({{Key::URLArray, links}, {Key::Pasted, true}});
    QComboBox popUp;
    LinkListModel model;
    popUp.setModel(&model);
    QElapsedTimer clock;
    clock.start();
    model.setLinks(LinkHistory::buildListURLs(QStringLiteral("quillo.example/?x=new")));
    model.setColourised(true);
    popUp.setCurrentIndex(0);
    const double ms = clock.nsecsElapsed() / 1e6;
    std::printf("%.1f\n", ms);
    return model.rowCount() == n + 4 ? 0 : 2;
}

}  // namespace

int main(int argc, char **argv)
{
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == u"serve" && argc == 3)
        return serve(argv[2]);
    if (mode == u"upload" && argc == 4)
        return upload(argc, argv, QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (mode == u"raw" && argc == 4)
        return raw(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (mode == u"history" && argc == 3)
        return history(argc, argv, std::atoi(argv[2]));
    std::fprintf(stderr, "usage: upload-bench serve PORTFILE | upload URL FILE | history N\n");
    return 64;
}
