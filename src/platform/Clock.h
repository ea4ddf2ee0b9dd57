#pragma once

#include <QDateTime>

#include <chrono>

namespace kest {

/// Tells the time. Injected so that tests can set it.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Now by the system's clock, in local time, to the millisecond. For what a
    /// person reads. Jumps when somebody sets that clock.
    virtual QDateTime now() const = 0;

    /// What has passed since some moment in the past, time in suspend included.
    /// For how long things take: nobody sets it, and it never goes back.
    virtual std::chrono::milliseconds uptime() const = 0;
};

} // namespace kest
