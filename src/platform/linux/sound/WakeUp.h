#pragma once

namespace kest {

/// Wakes one waiting thread from any other, without a lock: the waker never
/// waits. Several wakes before a wait count as one.
class WakeUp
{
public:
    WakeUp();
    ~WakeUp();
    WakeUp(const WakeUp &) = delete;
    WakeUp &operator=(const WakeUp &) = delete;

    void wake();

    /// Returns when woken or after `milliseconds`.
    void wait(int milliseconds);

    /// Takes back the wakes so far, for those who wait on `descriptor` with
    /// others (readable when woken).
    void clear();
    int descriptor() const { return m_event; }

private:
    int m_event = -1;
};

} // namespace kest
