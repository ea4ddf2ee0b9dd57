#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <atomic>
#include <csignal>
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace kest::test {

inline std::atomic<int> stallMilliseconds = 0;
inline std::atomic<int> stallsBegun = 0;

/// Holds one thread of this process up, as a busy machine does, from now on for
/// so long. `name` is what the thread calls itself. False when there is none.
inline bool stallThread(const char *name, int milliseconds)
{
    std::signal(SIGUSR2, [](int) {
        const int time = stallMilliseconds;
        ++stallsBegun;
        timespec left = {time / 1000, time % 1000 * 1'000'000L};
        while (nanosleep(&left, &left) != 0) { }
    });
    const QDir tasks(QStringLiteral("/proc/self/task"));
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile comm(tasks.filePath(task + QStringLiteral("/comm")));
        if (!comm.open(QIODevice::ReadOnly) || comm.readAll().trimmed() != name)
            continue;
        stallMilliseconds = milliseconds;
        const int before = stallsBegun;
        syscall(SYS_tgkill, getpid(), task.toInt(), SIGUSR2);
        while (stallsBegun == before)
            usleep(1000);
        return true;
    }
    return false;
}

} // namespace kest::test
