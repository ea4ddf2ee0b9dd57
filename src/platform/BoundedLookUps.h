#pragma once

#include <QByteArray>
#include <QHash>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <thread>

namespace kest {

/// Asks the file system without ever waiting for long: each question runs on a
/// thread of its own, and who asks waits for it no longer than told. A file
/// server that does not answer then costs that long once; further questions
/// about the same thing fail at once until it answers.
///
/// Use from one thread.
class BoundedLookUps
{
public:
    /// A value, or the errno of the failure.
    template<typename Value> struct Outcome {
        std::optional<Value> value;
        int errorNumber = 0;
    };

    explicit BoundedLookUps(std::chrono::milliseconds longestWait) : m_longestWait(longestWait) { }

    /// What `work` returned, or ETIMEDOUT. `work` returns an Outcome, owns all
    /// it touches, and may be left to itself. `about` says what it looks at.
    template<typename Work> auto run(const QByteArray &about, Work work) -> decltype(work())
    {
        using Result = decltype(work());
        m_hanging.removeIf([](const auto &look) { return !look.value()->load(); });
        if (m_hanging.contains(about))
            return { {}, ETIMEDOUT };
        auto promise = std::make_shared<std::promise<Result>>();
        auto busy = std::make_shared<std::atomic<bool>>(true);
        auto future = promise->get_future();
        std::thread([promise, busy, work = std::move(work)] {
            promise->set_value(work());
            busy->store(false);
        }).detach();
        if (future.wait_for(m_longestWait) == std::future_status::ready)
            return future.get();
        m_hanging.insert(about, busy);
        return { {}, ETIMEDOUT };
    }

private:
    std::chrono::milliseconds m_longestWait;
    QHash<QByteArray, std::shared_ptr<std::atomic<bool>>> m_hanging;
};

} // namespace kest
