#include "platform/linux/desktop/SystemClock.h"

#include <ctime>

namespace kest {

namespace {

qint64 bootClock()
{
    timespec time = {};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

} // namespace

SystemClock::SystemClock() : m_start(QDateTime::currentDateTime()), m_startOnBootClock(bootClock())
{
}

QDateTime SystemClock::now() const
{
    return m_start.addMSecs(bootClock() - m_startOnBootClock);
}

} // namespace kest
