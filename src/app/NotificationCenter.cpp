#include "NotificationCenter.h"

#include <QCoreApplication>
#include <QThread>

NotificationCenter::NotificationCenter(QObject *parent) : QObject(parent) {}

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter *center = [] {
        auto *c = new NotificationCenter;
        if (QCoreApplication::instance())
            c->moveToThread(QCoreApplication::instance()->thread());
        return c;
    }();
    return *center;
}

void NotificationCenter::addObserver(const QString &name, QObject *owner, Observer observer)
{
    m_entries.push_back({name, owner, std::move(observer)});
}

void NotificationCenter::removeObserver(QObject *owner)
{
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [owner](const Entry &e) { return e.owner == owner || e.owner.isNull(); }),
                    m_entries.end());
}

void NotificationCenter::post(const QString &name)
{
    if (QThread::currentThread() == thread())
        deliver(name);
    else
        QMetaObject::invokeMethod(this, [this, name] { deliver(name); }, Qt::QueuedConnection);
}

void NotificationCenter::deliver(const QString &name)
{
    // Observers may add or remove observers: walk a snapshot.
    const std::vector<Entry> snapshot = m_entries;
    for (const Entry &e : snapshot)
        if (e.name == name && !e.owner.isNull())
            e.observer(name);
}
