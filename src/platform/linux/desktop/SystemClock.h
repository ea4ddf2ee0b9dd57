#pragma once

#include "platform/Clock.h"

namespace kest {

/// The system's time as it was when the clock was made, and what the boot clock
/// (which runs on in suspend and which nobody sets) counted since.
class SystemClock : public Clock
{
public:
    SystemClock();

    QDateTime now() const override;

private:
    QDateTime m_start;
    qint64 m_startOnBootClock = 0; // ms
};

} // namespace kest
