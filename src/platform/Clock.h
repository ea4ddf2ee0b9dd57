#pragma once

#include <QDateTime>

namespace kest {

/// Tells the time. Injected so that tests can set it.
class Clock
{
public:
    virtual ~Clock() = default;

    /// Now, in local time, to the millisecond. Two readings differ by the time
    /// that passed, also when somebody set the system's clock in between.
    virtual QDateTime now() const = 0;
};

} // namespace kest
