#include "platform/linux/sound/ClippingDetector.h"

#include <algorithm>
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

} // namespace

bool ClippingDetector::hearsClipping(const float *interleaved, qsizetype frames)
{
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
