#pragma once

#include "platform/linux/sound/MonotonicTime.h"

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>

namespace kest {

/// Decides which of the captured samples belong to the recording.
///
/// A sample arrives some ten milliseconds after it was spoken. So a press does
/// not act on what arrives next: it is remembered with its moment, and the
/// stream of samples is cut where that moment lies in it. What was said before
/// Pause is kept though it arrives later; what is said after Resume is kept from
/// its first sample.
class CaptureGate
{
public:
    enum class Action { Open, Close, End };

    explicit CaptureGate(int sampleRate) : m_sampleRate(sampleRate) { }

    /// Any thread: from `time` on, samples belong to the recording, or do not,
    /// or the recording is over. A time before that of an earlier call counts as
    /// that one.
    void schedule(Action action, MonotonicTime time);

    /// Capture thread: hands the parts of a chunk that belong to the recording
    /// to `keep`, in order. `start` tells the moment at which its first sample was
    /// captured; it is asked only where something is scheduled.
    void pass(const float *samples, qsizetype count, const std::function<MonotonicTime()> &start,
              const std::function<void(const float *samples, qsizetype count)> &keep);

    /// Capture thread: no more samples come; everything scheduled is as done.
    void end() { m_ended = true; }

    /// Capture thread.
    bool hasEnded() const { return m_ended; }
    bool isOpen() const { return m_open && !m_ended; }

private:
    struct Cut {
        Action action;
        MonotonicTime time;
    };

    bool hasCuts();
    bool takeCutBefore(MonotonicTime time, Cut *cut);

    const int m_sampleRate;
    std::mutex m_mutex; // held for the length of a queue operation
    std::deque<Cut> m_cuts;
    MonotonicTime m_latest = 0;
    bool m_open = false;
    bool m_ended = false;
};

} // namespace kest
