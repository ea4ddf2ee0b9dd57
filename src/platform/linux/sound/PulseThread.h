#pragma once

#include "platform/PluginLibrary.h"
#include "platform/linux/sound/MonotonicTime.h"
#include "platform/linux/sound/PulsePlugin.h"
#include "platform/linux/sound/WakeUp.h"

#include <QDeadlineTimer>

#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kest {

/// Reads what the server sends, and says how soon that must be. Called on the
/// PulseThread.
class PulseReader
{
public:
    virtual ~PulseReader() = default;

    /// How long what the server sent may lie there, in milliseconds; 0: not at
    /// all.
    virtual int readingInterval() const = 0;

    /// At the moment `looked` nothing was left to be read. Comes after every
    /// reading, also where nothing was there. How long ago that was nobody knows:
    /// a machine may be too busy for a program at any point of it.
    virtual void everythingRead(MonotonicTime looked) = 0;
};

/// The thread on which everything that concerns the sound server happens.
///
/// Others never touch a libpulse object: they post tasks. Posting takes a queue
/// operation and never waits for the thread, so a server that stalls, or a
/// library call that blocks, blocks nobody else. Tasks run before libpulse is
/// loaded, and without it.
class PulseThread
{
public:
    using Task = std::function<void()>;

    /// `pluginFile` as PluginLibrary takes it.
    explicit PulseThread(const QByteArray &pluginFile);

    /// Runs what is posted, and what that posts, then ends the thread.
    ~PulseThread();
    PulseThread(const PulseThread &) = delete;
    PulseThread &operator=(const PulseThread &) = delete;

    /// Any thread. Tasks run in the order of posting.
    void post(Task task);

    /// What the server sends is read as often as the most impatient reader wants;
    /// at once without any. Posted tasks never wait for it. On the thread itself.
    void addReader(PulseReader *reader);
    void removeReader(PulseReader *reader);

    /// Runs the task once, `milliseconds` from now, unless libpulse is loaded
    /// before. On the thread itself.
    void runUnlessLoaded(int milliseconds, Task task);

    /// The task of `runUnlessLoaded` is not run any more. On the thread itself.
    void forgetUnlessLoaded();

    /// Loads libpulse, if that has not been done; takes milliseconds. False when
    /// it cannot be had, with the reason in `problem`; may be tried again. On the
    /// thread itself.
    bool load(QString *problem);

    /// libpulse, once it is loaded. For use on the thread itself.
    const PulseFunctions &pulse() const { return *m_pulse; }

    /// Null until libpulse is loaded. For use on the thread itself.
    pa_mainloop_api *api() const { return m_api; }

private:
    void run();
    bool turn(); // false when the loop is broken
    int poll(pollfd *descriptors, unsigned long count, int timeout) const;
    void tellEverythingRead(MonotonicTime looked) const;
    int readingInterval() const; // 0 without readers
    bool runTasks(); // false when there were none

    WakeUp m_wakeUp;
    std::mutex m_mutex; // held for the length of a queue operation
    std::vector<Task> m_tasks;
    // The thread's own:
    PluginLibrary m_library;
    QDeadlineTimer m_due{QDeadlineTimer::Forever};
    Task m_whenDue;
    const PulseFunctions *m_pulse = nullptr; // this and the next three: until loaded
    pa_mainloop *m_loop = nullptr;
    pa_mainloop_api *m_api = nullptr;
    pa_io_event *m_event = nullptr;
    bool m_quit = false;
    std::vector<PulseReader *> m_readers;
    std::thread m_thread;
};

/// Calls back on the PulseThread after a while. Made, set and destroyed there.
/// Never expires where it is set before libpulse is loaded.
class PulseTimer
{
public:
    PulseTimer(PulseThread &thread, std::function<void()> expired);
    ~PulseTimer();
    PulseTimer(const PulseTimer &) = delete;
    PulseTimer &operator=(const PulseTimer &) = delete;

    /// Expires once, `milliseconds` from now; replaces an earlier setting.
    void setSingleShot(int milliseconds);
    void cancel();

private:
    PulseThread &m_thread;
    pa_time_event *m_event = nullptr;
    std::function<void()> m_expired;
};

} // namespace kest
