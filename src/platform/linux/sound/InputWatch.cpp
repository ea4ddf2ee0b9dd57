#include "platform/linux/sound/InputWatch.h"

#include <cmath>

namespace kest {

void InputWatch::add(const float *samples, qsizetype count, bool clipped)
{
    for (qsizetype i = 0; i < count; ++i) {
        const bool isAudible = std::fabs(samples[i]) >= audible;
        m_zeros = samples[i] == 0.0F ? m_zeros + 1 : 0;
        m_quiet = isAudible ? 0 : m_quiet + 1;
        m_heard = m_heard || isAudible;
        if (isAudible)
            m_silent = false;
        else if (m_zeros >= secondsOfZeros * m_sampleRate || m_quiet >= secondsOfQuiet * m_sampleRate)
            m_silent = true;
    }
    if (clipped)
        m_sinceClipping = 0;
    else if (m_sinceClipping >= 0)
        m_sinceClipping += count;
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
