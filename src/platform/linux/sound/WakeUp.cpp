#include "platform/linux/sound/WakeUp.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace kest {

WakeUp::WakeUp() : m_event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) { }

WakeUp::~WakeUp()
{
    if (m_event >= 0)
        close(m_event);
}

void WakeUp::wake()
{
    const std::uint64_t one = 1;
    // Can only fail when the counter is full, and then the waiter is awake.
    [[maybe_unused]] const ssize_t written = write(m_event, &one, sizeof one);
}

void WakeUp::wait(int milliseconds)
{
    pollfd events = {m_event, POLLIN, 0};
    poll(&events, 1, milliseconds);
    clear();
}

void WakeUp::clear()
{
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = read(m_event, &count, sizeof count);
}

} // namespace kest
