#include "platform/linux/sound/UsableSamples.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace kest {

namespace {

/// Without the sign, floats are in the order of their bits, infinity and NaN above all others (IEEE 754). Whole numbers,
/// because the compiler may take their greatest in any order, and so several at once.
int32_t magnitude(float sample)
{
    return std::bit_cast<int32_t>(sample) & 0x7fff'ffff;
}

bool areUsable(const float *samples, qsizetype count)
{
    int32_t greatest = 0;
    for (qsizetype i = 0; i < count; ++i)
        greatest = std::max(greatest, magnitude(samples[i]));
    return greatest <= magnitude(loudestSample);
}

float usable(float sample)
{
    return std::isfinite(sample) ? std::clamp(sample, -loudestSample, loudestSample) : 0.0F;
}

} // namespace

const float *usableSamples(const float *samples, qsizetype count, std::vector<float> &room)
{
    if (areUsable(samples, count))
        return samples;
    room.resize(size_t(count));
    std::transform(samples, samples + count, room.begin(), usable);
    return room.data();
}

} // namespace kest
