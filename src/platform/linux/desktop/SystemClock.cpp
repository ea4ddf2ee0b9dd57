#include "platform/linux/desktop/SystemClock.h"

#include <ctime>

namespace kest {

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}

std::chrono::milliseconds SystemClock::uptime() const
{
    timespec time = {};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::milliseconds(qint64(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000);
}

} // namespace kest
