#pragma once

#include <QMetaObject>

#include <deque>
#include <functional>
#include <mutex>

namespace kest {

/// Where other threads leave news for an object of the main thread; held by
/// both, so that it outlives the object. `Receiver` has an invokable `takeNews`
/// that calls `takeOne`.
template <typename Receiver>
class Mailbox
{
public:
    using News = std::function<void(Receiver &)>;

    explicit Mailbox(Receiver *receiver) : m_receiver(receiver) { }

    /// Any thread. `news` is called on the main thread, unless the receiver is
    /// gone by then.
    void deliver(News news)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_receiver)
            return;
        // Only a knock goes through Qt, of which the thread sanitizer sees nothing; what is told passes under the lock.
        m_news.push_back(std::move(news));
        QMetaObject::invokeMethod(m_receiver, "takeNews", Qt::QueuedConnection);
    }

    /// The receiver's, one for each knock: what listens may throw, or destroy it.
    void takeOne()
    {
        News news;
        Receiver *receiver = nullptr;
        {
            const std::lock_guard lock(m_mutex);
            receiver = m_receiver;
            if (!receiver || m_news.empty())
                return;
            news = std::move(m_news.front());
            m_news.pop_front();
        }
        news(*receiver);
    }

    /// The receiver's, when it goes.
    void close()
    {
        const std::lock_guard lock(m_mutex);
        m_receiver = nullptr;
        m_news.clear();
    }

private:
    std::mutex m_mutex;
    Receiver *m_receiver; // null when it is gone
    std::deque<News> m_news;
};

} // namespace kest
