#include "platform/linux/sound/PulseThread.h"

#include <poll.h>
#include <pthread.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace kest {

PulseThread::PulseThread(const QByteArray &pluginFile) : m_library(pluginFile)
{
    m_thread = std::thread([this] { run(); });
}

PulseThread::~PulseThread()
{
    post([this] { m_quit = true; });
    m_thread.join();
    if (!m_loop)
        return;
    m_api->io_free(m_event);
    m_pulse->mainloop_free(m_loop);
}

void PulseThread::runUnlessLoaded(int milliseconds, Task task)
{
    m_whenDue = std::move(task);
    m_due.setRemainingTime(milliseconds);
}

void PulseThread::forgetUnlessLoaded()
{
    m_due = QDeadlineTimer(QDeadlineTimer::Forever);
    m_whenDue = nullptr;
}

bool PulseThread::load(QString *problem)
{
    if (m_loop)
        return true;
    void *entry = m_library.entry(pulsePluginEntry, problem);
    if (!entry)
        return false;
    m_pulse = reinterpret_cast<PulsePluginEntry>(entry)();
    m_loop = m_pulse->mainloop_new();
    if (!m_loop) {
        *problem = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    m_api = m_pulse->mainloop_get_api(m_loop);
    // An event of our own: pa_mainloop_wakeup is forgotten when it comes just before the loop goes to sleep.
    m_event = m_api->io_new(
        m_api, m_wakeUp.descriptor(), PA_IO_EVENT_INPUT,
        [](pa_mainloop_api *, pa_io_event *, int, pa_io_event_flags_t, void *self) {
            static_cast<PulseThread *>(self)->runTasks();
        },
        this);
    m_pulse->mainloop_set_poll_func(
        m_loop,
        [](pollfd *descriptors, unsigned long count, int timeout, void *self) {
            return static_cast<PulseThread *>(self)->poll(descriptors, count, timeout);
        },
        this);
    return true;
}

void PulseThread::post(Task task)
{
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    m_wakeUp.wake();
}

void PulseThread::addReader(PulseReader *reader)
{
    m_readers.push_back(reader);
}

void PulseThread::removeReader(PulseReader *reader)
{
    std::erase(m_readers, reader);
}

void PulseThread::run()
{
    pthread_setname_np(pthread_self(), "kest-capture");
    while (!m_quit && turn()) { }
    while (runTasks()) { }
}

bool PulseThread::turn()
{
    if (m_loop)
        return m_pulse->mainloop_iterate(m_loop, 1, nullptr) >= 0;
    m_wakeUp.wait(int(m_due.remainingTime()));
    runTasks();
    if (!m_loop && m_due.hasExpired()) {
        m_due = QDeadlineTimer(QDeadlineTimer::Forever);
        m_whenDue();
    }
    return true;
}

int PulseThread::poll(pollfd *descriptors, unsigned long count, int timeout) const
{
    if (m_readers.empty())
        return ::poll(descriptors, nfds_t(count), timeout);
    // A turn of the loop reads a piece of a message: all that is there must be read, or what comes in grows without end.
    const MonotonicTime looked = monotonicNow();
    if (const int ready = ::poll(descriptors, nfds_t(count), 0); ready != 0)
        return ready;
    tellEverythingRead(looked);
    const int interval = readingInterval();
    if (interval == 0)
        return ::poll(descriptors, nfds_t(count), timeout);
    pollfd posted = {m_wakeUp.descriptor(), POLLIN, 0};
    ::poll(&posted, 1, timeout < 0 ? interval : std::min(interval, timeout));
    return ::poll(descriptors, nfds_t(count), 0);
}

void PulseThread::tellEverythingRead(MonotonicTime looked) const
{
    const std::vector<PulseReader *> readers = m_readers; // one may take itself away
    for (PulseReader *reader : readers)
        reader->everythingRead(looked);
}

int PulseThread::readingInterval() const
{
    const auto interval = [](const PulseReader *reader) { return reader->readingInterval(); };
    return m_readers.empty() ? 0 : interval(*std::ranges::min_element(m_readers, {}, interval));
}

bool PulseThread::runTasks()
{
    m_wakeUp.clear();
    std::vector<Task> tasks;
    {
        const std::lock_guard lock(m_mutex);
        tasks.swap(m_tasks);
    }
    for (const Task &task : tasks)
        task();
    return !tasks.empty();
}

PulseTimer::PulseTimer(PulseThread &thread, std::function<void()> expired)
    : m_thread(thread), m_expired(std::move(expired))
{
}

PulseTimer::~PulseTimer()
{
    cancel();
}

void PulseTimer::setSingleShot(int milliseconds)
{
    pa_mainloop_api *api = m_thread.api();
    if (!api)
        return;
    timeval when = {};
    const PulseFunctions &pulse = m_thread.pulse();
    pulse.timeval_add(pulse.gettimeofday(&when), pa_usec_t(milliseconds) * PA_USEC_PER_MSEC);
    if (m_event) {
        api->time_restart(m_event, &when);
        return;
    }
    m_event = api->time_new(
        api, &when,
        [](pa_mainloop_api *, pa_time_event *, const timeval *, void *self) {
            static_cast<PulseTimer *>(self)->m_expired();
        },
        this);
}

void PulseTimer::cancel()
{
    if (m_event)
        m_thread.api()->time_free(std::exchange(m_event, nullptr));
}

} // namespace kest
