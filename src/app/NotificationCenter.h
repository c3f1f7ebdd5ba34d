#pragma once
// Named notifications between the upload side, the upload panel and the delegate.
// post() may be called from any thread; observers always run on the GUI thread
// (at once when posted there, queued otherwise), in the order they were added.

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <vector>

namespace Notifications {
inline const QString UploadBegins = QStringLiteral("TestNotification2");     // transfer starts
inline const QString UploadProgress = QStringLiteral("TestNotification4");   // poll tick
inline const QString UploadSucceeded = QStringLiteral("TestNotification");   // link found
inline const QString UploadFailed = QStringLiteral("TestNotification3");
inline const QString UploadStarted = QStringLiteral("uploadStarted");  // upload panel shown
inline const QString UploadEnded = QStringLiteral("uploadEnded");      // upload panel gone
inline const QString URLAdded = QStringLiteral("URLAdded");
}  // namespace Notifications

class NotificationCenter : public QObject
{
    Q_OBJECT
public:
    using Observer = std::function<void(const QString &name)>;

    static NotificationCenter &defaultCenter();

    // The observer lives as long as `owner`; GUI thread only.
    void addObserver(const QString &name, QObject *owner, Observer observer);
    void removeObserver(QObject *owner);

    void post(const QString &name);

private:
    explicit NotificationCenter(QObject *parent = nullptr);
    void deliver(const QString &name);

    struct Entry {
        QString name;
        QPointer<QObject> owner;
        Observer observer;
    };
    std::vector<Entry> m_entries;
};
