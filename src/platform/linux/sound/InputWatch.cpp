#include "platform/linux/sound/InputWatch.h"

#include <cmath>

namespace kest {

void InputWatch::add(const float *samples, qsizetype count, bool clipped)
{
    // What was before the last audible sample does not matter any more; while somebody speaks, that is found at once.
    qsizetype heard = count;
    while (heard > 0 && !(std::fabs(samples[heard - 1]) >= audible))
        --heard;
    if (heard > 0) {
        m_heard = true;
        m_silent = false;
        m_zeros = m_quiet = 0;
    }
    addQuiet(samples + heard, count - heard);
    if (clipped)
        m_sinceClipping = 0;
    else if (m_sinceClipping >= 0)
        m_sinceClipping += count;
}

void InputWatch::addQuiet(const float *samples, qsizetype count)
{
    for (qsizetype i = 0; i < count; ++i) {
        m_zeros = samples[i] == 0.0F ? m_zeros + 1 : 0;
        m_silent = m_silent || m_zeros >= secondsOfZeros * m_sampleRate;
    }
    m_quiet += count;
    m_silent = m_silent || m_quiet >= secondsOfQuiet * m_sampleRate;
}

InputCondition InputWatch::condition() const
{
    if (m_sinceClipping >= 0 && m_sinceClipping < secondsAfterClipping * m_sampleRate)
        return InputCondition::Clipping;
    if (m_silent)
        return InputCondition::Silent;
    return m_heard ? InputCondition::Heard : InputCondition::Unknown;
}

} // namespace kest
