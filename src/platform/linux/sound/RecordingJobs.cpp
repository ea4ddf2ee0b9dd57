#include "platform/linux/sound/RecordingJobs.h"

#include <pthread.h>

#include <system_error>
#include <thread>

namespace kest {

void RecordingJobs::run(std::function<void()> job)
{
    count(1);
    try {
        // Detached: it may outlive everything but the process. Whatever it uses, it owns.
        std::thread([self = shared_from_this(), job = std::move(job)]() mutable {
            pthread_setname_np(pthread_self(), "kest-recording");
            job();
            job = nullptr;
            self->count(-1);
        }).detach();
    } catch (const std::system_error &) {
        count(-1);
        throw;
    }
}

void RecordingJobs::count(int more)
{
    const std::lock_guard lock(m_mutex);
    m_running += more;
    m_ended.notify_all();
}

bool RecordingJobs::waitForAll(int milliseconds)
{
    std::unique_lock lock(m_mutex);
    return m_ended.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_running == 0; });
}

} // namespace kest
