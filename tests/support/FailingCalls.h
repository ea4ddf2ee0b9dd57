#pragma once

#include <QByteArray>

namespace kest::test {

/// System calls on files. `Append` is write(), `WriteAt` is pwrite(), `DataSync` is
/// fdatasync().
enum class FileCall { Append, WriteAt, Sync, DataSync, Rename };

/// Lets system calls of this process fail, as a broken disk does, for as long
/// as it lives. One at a time.
///
/// A program that links this stands before the C library, also for the
/// libraries that it loads; it must export its symbols (ENABLE_EXPORTS).
class FailingCalls
{
public:
    /// The call of that kind with this number (1 is the next) and all after it
    /// fail with `error`, an errno value. Only files count whose name holds
    /// `name`.
    FailingCalls(FileCall call, QByteArray name, int number, int error);
    ~FailingCalls();
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;

    /// How many have failed so far.
    int failures() const;
};

} // namespace kest::test
