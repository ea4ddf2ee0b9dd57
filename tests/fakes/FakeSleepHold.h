#pragma once

#include "platform/SleepHold.h"

namespace kest::test {

/// Knows whether sleep would be held off.
class FakeSleepHold : public SleepHold
{
public:
    void hold(const QString &why) override { held = why; }
    void letGo() override { held.clear(); }

    QString held; ///< Why; empty when it is not.
};

} // namespace kest::test
