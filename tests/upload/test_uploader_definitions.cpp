// Uploader definitions (.sxcu): reading real-world-style files, rejecting what Quillo
// cannot do at load time, answer placeholders, the catalog and its imports; and the
// shortener's answer rules.

#include "Shortener.h"
#include "UploadDestination.h"
#include "UploaderCatalog.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class UploaderDefinitionsTest : public QObject
{
    Q_OBJECT

private slots:
    void readsRealWorldDefinitions();
    void rejectsWhatCannotBeSent_data();
    void rejectsWhatCannotBeSent();
    void answerPlaceholders_data();
    void answerPlaceholders();
    void settingsFillRequestFields();
    void catalogListsBuiltInsAndImports();
    void shortenerAnswers_data();
    void shortenerAnswers();
};

void UploaderDefinitionsTest::readsRealWorldDefinitions()
{
    QString error;
    // JSON path, headers, error message; an old file without Version.
    auto json = UploadDestination::fromJson(R"({
        "Version": "13.1.0", "Name": "Pictures API", "DestinationType": "ImageUploader",
        "RequestMethod": "POST", "RequestURL": "https://api.example.com/3/image",
        "Parameters": {"album": "q"}, "Headers": {"Authorization": "Client-ID 1234"},
        "Body": "MultipartFormData", "FileFormName": "image",
        "URL": "{json:data.link}", "ErrorMessage": "{json:data.error}"})", &error);
    QVERIFY2(json, qPrintable(error));
    QCOMPARE(json->name, QStringLiteral("Pictures API"));
    QCOMPARE(json->headers.value(0).second, QStringLiteral("Client-ID 1234"));
    QCOMPARE(json->parameters.value(0).first, QStringLiteral("album"));
    QCOMPARE(json->fileFormName, QStringLiteral("image"));

    auto legacy = UploadDestination::fromJson(R"({"Name": "Old host", "RequestType": "POST",
        "RequestURL": "https://old.example/upload", "FileFormName": "file",
        "RegexList": ["\"url\":\"(.+?)\""], "URL": "$regex:1|1$"})", &error);
    QVERIFY2(legacy, qPrintable(error));
    QCOMPARE(legacy->method, QStringLiteral("POST"));
    QCOMPARE(legacy->body, UploadBody::MultipartFormData);

    auto plain = UploadDestination::fromJson(R"({"Name": "Raw", "RequestMethod": "PUT",
        "RequestURL": "https://raw.example/{filename}", "Body": "Binary"})", &error);
    QVERIFY2(plain, qPrintable(error));
    QCOMPARE(plain->urlTemplate, QStringLiteral("{response}"));  // no URL: the answer is the link

    auto form = UploadDestination::fromJson(R"({"Name": "Form", "RequestURL": "https://f.example/api",
        "Body": "FormURLEncoded", "Arguments": {"key": "abc", "image": "{base64}"},
        "URL": "{json:data.url}"})", &error);
    QVERIFY2(form, qPrintable(error));
    QCOMPARE(form->body, UploadBody::FormURLEncoded);
}

void UploaderDefinitionsTest::rejectsWhatCannotBeSent_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("reason");
    const QByteArray head = R"("Name":"X","RequestURL":"https://x.example/u","FileFormName":"f")";
    QTest::newRow("not JSON") << QByteArray("{\"Name\": ") << "JSON";
    QTest::newRow("no name") << QByteArray(R"({"RequestURL":"https://x.example"})") << "Name";
    QTest::newRow("JSON body") << "{" + head + R"(,"Body":"JSON","Data":"{\"a\":1}"})" << "Body";
    QTest::newRow("GET") << "{" + head + R"(,"RequestMethod":"GET"})" << "GET";
    QTest::newRow("prompt") << "{" + head + R"(,"Arguments":{"title":"{prompt}"}})" << "{prompt}";
    QTest::newRow("select") << "{" + head + R"(,"Headers":{"a":"{select:a|b}"}})" << "{select}";
    QTest::newRow("legacy random") << "{" + head + R"(,"URL":"https://x/$random:1|2$"})" << "$random$";
    QTest::newRow("answer placeholder in request") << "{" + head + R"(,"Arguments":{"a":"{json:x}"}})" << "{json}";
    QTest::newRow("unknown setting") << "{" + head + R"(,"Arguments":{"a":"{setting:password}"}})" << "password";
    QTest::newRow("other setting") << "{" + head + R"(,"Arguments":{"a":"{setting:custompathsaved}"}})" << "custompathsaved";
    QTest::newRow("bad regex") << "{" + head + R"(,"URL":"{regex:(unclosed|1}"})" << "regular expression";
    QTest::newRow("no file form name") << QByteArray(R"({"Name":"X","RequestURL":"https://x.example"})") << "FileFormName";
    QTest::newRow("form without file") << QByteArray(R"({"Name":"X","RequestURL":"https://x.example","Body":"FormURLEncoded"})") << "base64";
    QTest::newRow("URL shortener") << "{" + head + R"(,"DestinationType":"URLShortener"})" << "DestinationType";
    QTest::newRow("base64 in multipart") << "{" + head + R"(,"Arguments":{"data":"{base64}"}})" << "FormURLEncoded";
    QTest::newRow("arguments with binary")
        << QByteArray(R"({"Name":"X","RequestURL":"https://x.example","Body":"Binary","Arguments":{"a":"b"}})")
        << "Binary";
}

void UploaderDefinitionsTest::rejectsWhatCannotBeSent()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, reason);
    QString error;
    QVERIFY(!UploadDestination::fromJson(json, &error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void UploaderDefinitionsTest::answerPlaceholders_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("expected");
    const QByteArray api = R"({"data":{"link":"https:\/\/i.example\/a.png","id":42},"files":[{"url":"u0"},{"url":"u1"}]})";
    QTest::newRow("json path") << "{json:data.link}" << api << "https://i.example/a.png";
    QTest::newRow("json index") << "{json:files[1].url}" << api << "u1";
    QTest::newRow("json number in text") << "https://i.example/{json:data.id}" << api << "https://i.example/42";
    QTest::newRow("json anywhere") << "{json:..link}" << api << "https://i.example/a.png";
    QTest::newRow("legacy json") << "$json:files[0].url$" << api << "u0";
    QTest::newRow("json missing") << "{json:data.nope}" << api << "";
    QTest::newRow("json of non-JSON") << "{json:a}" << QByteArray("<html>") << "";
    QTest::newRow("regex group") << "{regex:id=(\\d{2,})|1}" << QByteArray("ok id=1234") << "1234";
    QTest::newRow("regex alternation kept") << "{regex:cat|dog}" << QByteArray("hotdog") << "dog";
    QTest::newRow("regex named") << "{regex:(?<n>[a-z]+)\\.png|n}" << QByteArray("x/pic.png") << "pic";
    QTest::newRow("response") << "{response}" << QByteArray("https://a.example/x") << "https://a.example/x";
    QTest::newRow("escaped braces") << "\\{{response}\\}" << QByteArray("r") << "{r}";
    QTest::newRow("header") << "{header:Location}" << QByteArray() << "https://h.example/1";
    QTest::newRow("filename") << "https://a.example/{filename}" << QByteArray() << "https://a.example/shot.png";
}

void UploaderDefinitionsTest::answerPlaceholders()
{
    QFETCH(QString, field);
    QFETCH(QByteArray, body);
    QFETCH(QString, expected);
    QVERIFY2(Placeholders::check(field, Placeholders::Field::Answer).isEmpty(), qPrintable(field));
    Placeholders::Answer answer{body, {{"location", "https://h.example/1"}}, QStringLiteral("shot.png"), {}};
    QCOMPARE(Placeholders::expandAnswer(field, answer), expected);
}

void UploaderDefinitionsTest::settingsFillRequestFields()
{
    auto d = UploadDestination::fromFile(QStringLiteral(":/uploaders/imageshack-api.sxcu"), nullptr);
    QVERIFY(d);
    const auto setting = [](const QString &key) {
        return key == u"imagehosturl" ? QStringLiteral("https://host.example/upload_api.php") : QStringLiteral("KEY");
    };
    const UploadDestination r = d->resolved(setting, QStringLiteral("a.png"));
    QCOMPARE(r.requestUrl, QStringLiteral("https://host.example/upload_api.php"));
    QCOMPARE(r.fileFormName, QStringLiteral("fileupload"));
    QVERIFY(r.arguments.contains({QStringLiteral("key"), QStringLiteral("KEY")}));
    QVERIFY(r.arguments.contains({QStringLiteral("format"), QStringLiteral("json")}));
}

void UploaderDefinitionsTest::catalogListsBuiltInsAndImports()
{
    QVERIFY(UploaderCatalog::importFolder().startsWith(
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)));
    QDir(UploaderCatalog::importFolder()).removeRecursively();
    UploaderCatalog catalog;
    QVERIFY(catalog.problems().isEmpty());
    QVERIFY(catalog.names().contains(QStringLiteral("Catbox")));
    QVERIFY(catalog.names().contains(QStringLiteral("ImageShack API")));
    const auto catbox = catalog.find(QStringLiteral("catbox"));
    QVERIFY(catbox);
    QCOMPARE(catbox->requestUrl, QStringLiteral("https://catbox.moe/user/api.php"));
    QCOMPARE(catbox->fileFormName, QStringLiteral("fileToUpload"));

    QTemporaryDir dir;
    auto write = [&dir](const QString &name, const QByteArray &json) {
        QFile f(dir.filePath(name));
        f.open(QIODevice::WriteOnly);
        f.write(json);
        return f.fileName();
    };
    // (Raw strings stay out of the test macros: moc cannot read them there.)
    const QString bad = write("bad.sxcu", R"({"Name":"Bad","RequestURL":"https://b","Body":"XML"})");
    const QString clash = write("clash.sxcu", R"({"Name":"Catbox","RequestURL":"https://b","FileFormName":"f"})");
    const QString mine = write("mine.sxcu", R"({"Name":"Mine","RequestURL":"https://one","FileFormName":"f"})");
    const QString mine2 = write("mine2.sxcu", R"({"Name":"Mine","RequestURL":"https://two","FileFormName":"f"})");
    QString error;
    QVERIFY(!catalog.importFile(bad, &error));
    QVERIFY(!catalog.importFile(clash, &error));
    QVERIFY(!catalog.importFile(dir.filePath("missing.sxcu"), &error));
    QVERIFY(QDir(UploaderCatalog::importFolder()).entryList(QDir::Files).isEmpty());

    QVERIFY2(catalog.importFile(mine, &error), qPrintable(error));
    QVERIFY(catalog.importFile(mine2, &error));
    QCOMPARE(QDir(UploaderCatalog::importFolder()).entryList(QDir::Files).size(), 1);
    QCOMPARE(UploaderCatalog().find(QStringLiteral("Mine"))->requestUrl, QStringLiteral("https://two"));

    // A broken file in the folder is reported, not loaded.
    QFile junk(UploaderCatalog::importFolder() + QStringLiteral("/junk.sxcu"));
    QVERIFY(junk.open(QIODevice::WriteOnly));
    junk.write("\xff\xfe not json");
    junk.close();
    UploaderCatalog reloaded;
    QCOMPARE(reloaded.problems().size(), 1);
    QVERIFY(reloaded.find(QStringLiteral("Mine")));
}

void UploaderDefinitionsTest::shortenerAnswers_data()
{
    QTest::addColumn<QString>("service");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("code");  // empty: no short link
    QTest::addColumn<QString>("withHost");
    QTest::addColumn<QString>("withoutHost");
    const QString isgd = QStringLiteral("https://is.gd/create.php");
    QTest::newRow("plain") << isgd << QByteArray("https://is.gd/Ab12\n") << "Ab12" << "q.example/?x=Ab12" << "is.gd/Ab12";
    QTest::newRow("http and www") << isgd << QByteArray("http://www.is.gd/Zz") << "Zz" << "q.example/?x=Zz" << "www.is.gd/Zz";
    QTest::newRow("www service") << "https://www.is.gd/create.php" << QByteArray("https://is.gd/k") << "k" << "q.example/?x=k" << "is.gd/k";
    QTest::newRow("with port") << "http://127.0.0.1:8080/create.php" << QByteArray("http://127.0.0.1:8080/p") << "p" << "q.example/?x=p" << "127.0.0.1:8080/p";
    QTest::newRow("other port") << "http://127.0.0.1:8080/create.php" << QByteArray("http://127.0.0.1:9090/p") << "" << "" << "";
    QTest::newRow("other host") << isgd << QByteArray("https://evil.example/x") << "" << "" << "";
    QTest::newRow("host as prefix") << isgd << QByteArray("https://is.gd.evil.example/x") << "" << "" << "";
    QTest::newRow("error") << isgd << QByteArray("Error: Please enter a valid URL to shorten") << "" << "" << "";
    QTest::newRow("empty") << isgd << QByteArray() << "" << "" << "";
    QTest::newRow("no code") << isgd << QByteArray("https://is.gd/") << "" << "" << "";
    QTest::newRow("html") << isgd << QByteArray("<html>https://is.gd/x</html>") << "" << "" << "";
}

void UploaderDefinitionsTest::shortenerAnswers()
{
    QFETCH(QString, service);
    QFETCH(QByteArray, answer);
    QFETCH(QString, code);
    QFETCH(QString, withHost);
    QFETCH(QString, withoutHost);
    const auto link = Shortener::parseAnswer(answer, service);
    QCOMPARE(bool(link), !code.isEmpty());
    if (!link)
        return;
    QCOMPARE(link->code, code);
    QCOMPARE(Shortener::productLink(*link, QStringLiteral("q.example/")), withHost);
    QCOMPARE(Shortener::productLink(*link, QString()), withoutHost);
}

QTEST_GUILESS_MAIN(UploaderDefinitionsTest)
#include "test_uploader_definitions.moc"
