#pragma once
// One upload from start to link, for the GUI thread: start() reads nothing from widgets,
// runs the transfer and the shortening on a worker thread, posts the upload notifications
// ("TestNotification2" at the start, "TestNotification" once the link is found,
// "TestNotification3" on failure), asks the application delegate to open the upload panel
// (and to close it slowly on failure), and emits finished() on the GUI thread.

#include "HttpTransfer.h"
#include "Shortener.h"
#include "UploadDestination.h"

#include <QMetaType>
#include <QObject>
#include <QString>
#include <atomic>
#include <memory>
#include <thread>

struct UploadOptions {
    TransferLimits limits;
    ShortenerConfig shortener;

    // uploadconnecttimeout, uploadstalltimeout, uploadanswerlimit, shortenerurl, linkhost.
    static UploadOptions fromSettings();  // GUI thread
};

struct UploadOutcome {
    bool ok = false;
    QString directLink;   // the link the destination answered
    QString productLink;  // what goes on the clipboard: the product link, or directLink
                          // when there is no shortener or the shortening failed
    bool shortened = false;
    QString error;        // why it failed (empty on success)
};

Q_DECLARE_METATYPE(UploadOutcome)

class UploadSession : public QObject
{
    Q_OBJECT
public:
    explicit UploadSession(QObject *parent = nullptr);
    ~UploadSession() override;  // ends a running transfer and waits for its thread

    // The destination named by the setting `uploader` (built-in or imported), with the
    // options from the settings. A missing destination still runs the failure path.
    bool start(const QString &filePath);
    // Answers false (and does nothing) while an upload runs.
    bool start(const QString &filePath, const UploadDestination &destination, const UploadOptions &options);

    bool isRunning() const { return m_running; }
    // Some upload of this process has not ended yet (its panel may be closed already).
    static bool anyRunning();

signals:
    void finished(const UploadOutcome &outcome);

private:
    struct Job;
    void deliver(const UploadOutcome &outcome);
    void launch(std::shared_ptr<Job> job);

    std::thread m_worker;
    std::shared_ptr<std::atomic<bool>> m_cancel;
    bool m_running = false;
};

// Whether `link` is an absolute http(s) address without spaces.
bool isWebLink(const QString &link);
