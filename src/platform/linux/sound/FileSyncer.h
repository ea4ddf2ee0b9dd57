#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace kest {

/// Has a growing file written to the disk once a second, on a thread of its own,
/// so that a slow disk does not hold up the encoder. A power cut then costs
/// about a second.
class FileSyncer
{
public:
    /// `file` stays open for as long as this lives. `first` is done before all
    /// else, on the same thread. Where the system gives no thread, `first` is
    /// done at once and the disk takes its time.
    explicit FileSyncer(int file, std::function<void()> first = {});

    /// Waits for a write to the disk that is under way.
    ~FileSyncer();
    FileSyncer(const FileSyncer &) = delete;
    FileSyncer &operator=(const FileSyncer &) = delete;

    /// 0, or the errno of the first time that the disk did not take what had
    /// been written. The system tells it once, and not at the next write. Any
    /// thread.
    int error() const { return m_error.load(std::memory_order_relaxed); }

private:
    void run();
    void sync();

    const int m_file;
    const std::function<void()> m_first;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_ended = false;
    std::atomic<int> m_error = 0;
    std::thread m_thread;
};

} // namespace kest
