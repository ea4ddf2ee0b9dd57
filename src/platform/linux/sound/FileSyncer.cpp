#include "platform/linux/sound/FileSyncer.h"

#include "platform/linux/sound/RecordingLog.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>

namespace kest {

FileSyncer::FileSyncer(int file, std::function<void()> first)
    : m_file(file), m_first(std::move(first))
{
    try {
        m_thread = std::thread([this] { run(); });
    } catch (const std::system_error &failure) {
        qCWarning(logRecording, "A power cut would cost more of this recording than usual: %s", failure.what());
        if (m_first)
            m_first();
    }
}

FileSyncer::~FileSyncer()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void FileSyncer::run()
{
    if (m_first)
        m_first();
    std::unique_lock lock(m_mutex);
    while (!m_changed.wait_for(lock, std::chrono::seconds(1), [this] { return m_ended; })) {
        lock.unlock();
        sync();
        lock.lock();
    }
}

void FileSyncer::sync()
{
    if (fdatasync(m_file) == 0)
        return;
    // Others say that a file system knows no such call.
    const bool isLoss = errno == EIO || errno == ENOSPC || errno == EDQUOT;
    int none = 0;
    if (isLoss)
        m_error.compare_exchange_strong(none, errno, std::memory_order_relaxed);
}

} // namespace kest
