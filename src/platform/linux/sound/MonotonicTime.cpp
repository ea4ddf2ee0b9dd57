#include "platform/linux/sound/MonotonicTime.h"

#include <ctime>

namespace kest {

MonotonicTime monotonicNow()
{
    constexpr qint64 nanosecondsPerSecond = 1'000'000'000;
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * nanosecondsPerSecond + now.tv_nsec;
}

} // namespace kest
