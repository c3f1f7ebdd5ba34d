#pragma once
// One blocking HTTP request made with libcurl: a file streamed from disk as a multipart
// part or as the raw body, or a URL-encoded form. Runs on a worker thread; touches no Qt
// object besides its own values.

#include "UploadDestination.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <atomic>

struct TransferLimits {
    int connectTimeoutSeconds = 15;
    int stallTimeoutSeconds = 30;  // less than 1 byte/s for this long ends the transfer
    int totalTimeoutSeconds = 600;  // a trickling server cannot keep a transfer alive past this
    qint64 answerLimit = 1 << 20;  // bytes of answer body read at most
};

struct TransferField {
    QString name;
    QString value;
    bool fileAsBase64 = false;  // the value is the file's contents, base64-encoded
};

struct TransferRequest {
    QString method = QStringLiteral("POST");
    QString url;
    QList<QPair<QString, QString>> headers;
    UploadBody body = UploadBody::MultipartFormData;
    QList<TransferField> fields;
    QString fileFormName;  // multipart: the file part's name; empty sends no file part
    QString filePath;
    QString fileContentType;  // Binary bodies
    bool reportsProgress = false;  // writes uploadPercent()
};

struct TransferResult {
    bool completed = false;  // the exchange ran to its end
    long httpStatus = 0;
    QByteArray body;
    QList<QPair<QByteArray, QByteArray>> headers;
    bool answerTooLarge = false;
    QString error;  // why it did not complete

    bool succeeded() const { return completed && httpStatus >= 200 && httpStatus < 300; }
};

// The request an upload to `destination` (request fields already resolved) makes.
TransferRequest uploadRequest(const UploadDestination &destination, const QString &filePath,
                              const QString &contentType);

// `cancel`, when set, ends the transfer at the next progress report.
TransferResult performTransfer(const TransferRequest &request, const TransferLimits &limits,
                               const std::atomic<bool> *cancel = nullptr);
