#include "platform/linux/sound/ClippingDetector.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kest {

namespace {

int rowWith(int row, float sample)
{
    // No further than it matters: a broken microphone may stand at full scale for days.
    if (sample >= ClippingDetector::fullScale)
        return std::min(std::max(row, 0) + 1, ClippingDetector::samplesInARow);
    if (sample <= -ClippingDetector::fullScale)
        return std::max(std::min(row, 0) - 1, -ClippingDetector::samplesInARow);
    return 0;
}

/// Told of many samples in much less time than their rows are.
bool reachFullScale(const float *samples, qsizetype count)
{
    constexpr qsizetype lanes = 16;
    qsizetype i = 0;
    for (; i + lanes <= count; i += lanes) {
        int reached = 0;
        for (qsizetype lane = 0; lane < lanes; ++lane)
            reached |= int(std::fabs(samples[i + lane]) >= ClippingDetector::fullScale);
        if (reached)
            return true;
    }
    return std::any_of(samples + i, samples + count,
                       [](float sample) { return std::fabs(sample) >= ClippingDetector::fullScale; });
}

} // namespace

bool ClippingDetector::hearsClipping(const float *interleaved, qsizetype frames)
{
    if (!reachFullScale(interleaved, frames * qsizetype(m_rows.size()))) {
        std::ranges::fill(m_rows, 0);
        return false;
    }
    bool clipped = false;
    for (qsizetype frame = 0; frame < frames; ++frame) {
        for (int &row : m_rows) {
            row = rowWith(row, *interleaved++);
            clipped = clipped || std::abs(row) == samplesInARow;
        }
    }
    return clipped;
}

} // namespace kest
