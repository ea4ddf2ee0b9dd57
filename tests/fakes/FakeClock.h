#pragma once

#include "platform/Clock.h"

namespace kest::test {

/// A clock that stands still until it is told otherwise.
class FakeClock : public Clock
{
public:
    QDateTime now() const override { return m_now; }
    std::chrono::milliseconds uptime() const override { return m_uptime; }

    /// Somebody sets the system's clock; no time passes.
    void setNow(const QDateTime &now) { m_now = now; }

    /// Time passes.
    void advance(double seconds)
    {
        const std::chrono::milliseconds passed(qRound64(seconds * 1000.0));
        m_now = m_now.addMSecs(passed.count());
        m_uptime += passed;
    }

private:
    QDateTime m_now{QDate(2024, 3, 5), QTime(14, 7, 9)};
    std::chrono::milliseconds m_uptime{1'000'000};
};

} // namespace kest::test
