#pragma once

#include "platform/AudioFileRecorder.h"

#include <QtGlobal>

namespace kest {

/// Judges, while it is being recorded, whether a recording is silent or too
/// loud.
///
/// Silent: nothing but zeros for a second, or no sample above -60 dBFS for three
/// seconds (a muted microphone gives zeros or a little noise, depending on where
/// it is muted). It stays silent until a sample is above that. Clipping: for
/// three seconds after something was cut off, so that it can be read. Times are
/// counted in samples. Any one thread.
class InputWatch
{
public:
    static constexpr float audible = 0.001F;     ///< Of full scale: -60 dBFS.
    static constexpr int secondsOfZeros = 1;
    static constexpr int secondsOfQuiet = 3;
    static constexpr int secondsAfterClipping = 3;

    explicit InputWatch(int sampleRate) : m_sampleRate(sampleRate) { }

    /// Samples of the recording, mono, full scale -1 to 1. `clipped`: something
    /// was cut off among them.
    void add(const float *samples, qsizetype count, bool clipped);

    /// The recording is paused or over: what comes next is judged afresh.
    void reset() { *this = InputWatch(m_sampleRate); }

    InputCondition condition() const;

private:
    void addQuiet(const float *samples, qsizetype count);

    int m_sampleRate;
    qint64 m_zeros = 0;          // zeros in a row
    qint64 m_quiet = 0;          // samples in a row that are not audible
    qint64 m_sinceClipping = -1; // samples; negative: nothing was cut off
    bool m_heard = false;        // something was audible
    bool m_silent = false;
};

} // namespace kest
