#pragma once

#include "platform/Clock.h"

namespace kest::test {

/// A clock that stands still until it is told otherwise.
class FakeClock : public Clock
{
public:
    QDateTime now() const override { return m_now; }
    void setNow(const QDateTime &now) { m_now = now; }
    void advance(double seconds) { m_now = m_now.addMSecs(qRound64(seconds * 1000.0)); }

private:
    QDateTime m_now{QDate(2024, 3, 5), QTime(14, 7, 9)};
};

} // namespace kest::test
