#pragma once
// A real HTTP server on 127.0.0.1 (cpp-httplib on its own thread, any free port) for the
// upload tests. Handlers that hold a request back wait on stopping(), so the server always
// shuts down promptly.

#include <httplib.h>

#include <QString>
#include <atomic>
#include <chrono>
#include <thread>

class LoopbackServer
{
public:
    LoopbackServer() = default;
    ~LoopbackServer() { stop(); }

    httplib::Server &http() { return m_server; }

    bool start()
    {
        m_port = m_server.bind_to_any_port("127.0.0.1");
        if (m_port <= 0)
            return false;
        m_thread = std::thread([this] { m_server.listen_after_bind(); });
        for (int i = 0; i < 200 && !m_server.is_running(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return m_server.is_running();
    }

    void stop()
    {
        m_stopping = true;
        m_server.stop();
        if (m_thread.joinable())
            m_thread.join();
    }

    // Sleeps up to `limit` in small steps, ending early when the server stops.
    void holdBack(std::chrono::milliseconds limit)
    {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!m_stopping && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }

    int port() const { return m_port; }
    QString url(const QString &path) const
    {
        return QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(path);
    }

private:
    httplib::Server m_server;
    std::thread m_thread;
    std::atomic<bool> m_stopping{false};
    int m_port = 0;
};
