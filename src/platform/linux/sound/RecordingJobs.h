#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace kest {

/// Counts the threads that still write recordings, so that the end of the
/// program can wait for them. Any thread.
class RecordingJobs : public std::enable_shared_from_this<RecordingJobs>
{
public:
    /// Runs `job` on a thread of its own. Throws std::system_error where the
    /// system gives no thread.
    void run(std::function<void()> job);

    /// False when `milliseconds` were not enough.
    bool waitForAll(int milliseconds);

private:
    void count(int more);

    std::mutex m_mutex;
    std::condition_variable m_ended;
    int m_running = 0;
};

} // namespace kest
