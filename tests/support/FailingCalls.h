#pragma once

#include <QByteArray>

#include <functional>

namespace kest::test {

/// System calls on files. `Append` is write(), `WriteAt` is pwrite(), `DataSync` is fdatasync(), `RenameToFree` is
/// renameat2(), `RenameOrLinkToFree` linkat() too. `Read` is read() and pread().
enum class FileCall { Append, WriteAt, Sync, DataSync, Rename, RenameToFree, RenameOrLinkToFree, Remove, Read };

/// Lets system calls of this process fail, as a broken disk does, for as long
/// as it lives. One at a time.
///
/// A program that links this stands before the C library, also for the
/// libraries that it loads; it must export its symbols (ENABLE_EXPORTS).
class FailingCalls
{
public:
    /// The call of that kind with this number (1 is the next) and all after it
    /// fail with `error`, an errno value; with 0 they do what they are to do.
    /// `meanwhile` happens once, as the first of them begins. Only files count
    /// whose name holds `name`.
    FailingCalls(FileCall call, QByteArray name, int number, int error, std::function<void()> meanwhile = {});
    ~FailingCalls();
    FailingCalls(const FailingCalls &) = delete;
    FailingCalls &operator=(const FailingCalls &) = delete;

    /// How many have failed, or would have with an error, so far.
    int failures() const;
};

} // namespace kest::test
