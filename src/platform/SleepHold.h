#pragma once

#include <QString>

namespace kest {

/// Keeps the computer awake while something goes on that must not be cut short.
///
/// Main thread. Neither call waits; where the desktop cannot do it, nothing
/// happens.
class SleepHold
{
public:
    virtual ~SleepHold() = default;

    /// The computer is not to go to sleep, nor to be taken for idle, until
    /// `letGo` or the end of the process, however it ends. `why` is one sentence
    /// for the person. Held already: nothing happens.
    virtual void hold(const QString &why) = 0;

    virtual void letGo() = 0;
};

} // namespace kest
