#pragma once

#include "platform/Clock.h"

namespace kest {

/// The system's clock, and the boot clock (CLOCK_BOOTTIME, clock_gettime(2)).
class SystemClock : public Clock
{
public:
    QDateTime now() const override;
    std::chrono::milliseconds uptime() const override;
};

} // namespace kest
