#include "platform/linux/desktop/TerminationSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr std::array handled { SIGTERM, SIGINT, SIGHUP };
std::array<int, 2> pipeEnds { -1, -1 };

// Only what POSIX allows in a signal handler.
void handle(int signalNumber)
{
    const int savedError = errno;
    const auto byte = static_cast<unsigned char>(signalNumber);
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
    errno = savedError;
}

// As nohup(1) has it.
bool isIgnored(int signalNumber)
{
    struct sigaction action = {};
    return ::sigaction(signalNumber, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent)
{
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &TerminationSignals::read);
    struct sigaction action = {};
    action.sa_handler = handle;
    for (const int signalNumber : handled) {
        // Only a person at a terminal insists; others may send the same one twice for no reason.
        action.sa_flags = signalNumber == SIGINT ? SA_RESTART | static_cast<int>(SA_RESETHAND) : SA_RESTART;
        if (!isIgnored(signalNumber))
            ::sigaction(signalNumber, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (!m_notifier)
        return;
    for (const int signalNumber : handled)
        std::signal(signalNumber, SIG_IGN);
    m_notifier.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

void TerminationSignals::read()
{
    unsigned char signalNumber = 0;
    while (::read(pipeEnds[0], &signalNumber, 1) == 1)
        Q_EMIT received(signalNumber);
}

} // namespace kest
