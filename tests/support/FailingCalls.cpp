#include "support/FailingCalls.h"

#include <climits>
#include <cstdio>
#include <dlfcn.h>
#include <mutex>
#include <optional>
#include <unistd.h>
#include <utility>

namespace kest::test {

namespace {

struct Plan {
    FileCall call;
    QByteArray name;
    int callsBefore;
    int error;
    int failures;
    std::function<void()> meanwhile;
};

std::mutex mutex; // guards plan
std::optional<Plan> plan;

QByteArray pathOf(int file)
{
    char link[64];
    char path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path);
    return QByteArray(path, length > 0 ? length : 0);
}

bool isPlanned(FileCall call, int file, const char *name)
{
    if (!plan || plan->call != call || !(name ? QByteArray(name) : pathOf(file)).contains(plan->name))
        return false;
    if (plan->callsBefore > 0) {
        --plan->callsBefore;
        return false;
    }
    return true;
}

/// True, with errno set, when this call is to fail.
bool fails(FileCall call, int file, const char *name = nullptr)
{
    std::unique_lock lock(mutex);
    if (!isPlanned(call, file, name))
        return false;
    ++plan->failures;
    const int error = plan->error;
    const auto meanwhile = std::exchange(plan->meanwhile, nullptr);
    lock.unlock(); // what happens meanwhile makes calls of its own
    if (meanwhile)
        meanwhile();
    errno = error;
    return error != 0;
}

template<typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

FailingCalls::FailingCalls(FileCall call, QByteArray name, int number, int error, std::function<void()> meanwhile)
{
    const std::lock_guard lock(mutex);
    plan = Plan{call, std::move(name), number - 1, error, 0, std::move(meanwhile)};
}

FailingCalls::~FailingCalls()
{
    const std::lock_guard lock(mutex);
    plan.reset();
}

int FailingCalls::failures() const
{
    const std::lock_guard lock(mutex);
    return plan->failures;
}

} // namespace kest::test

using kest::test::FileCall;
using kest::test::fails;
using kest::test::next;

extern "C" ssize_t read(int file, void *bytes, size_t count)
{
    static auto *const real = next<ssize_t(int, void *, size_t)>("read");
    return fails(FileCall::Read, file) ? -1 : real(file, bytes, count);
}

extern "C" ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const real = next<ssize_t(int, const void *, size_t)>("write");
    return fails(FileCall::Append, file) ? -1 : real(file, bytes, count);
}

extern "C" ssize_t pread(int file, void *bytes, size_t count, off_t offset)
{
    static auto *const real = next<ssize_t(int, void *, size_t, off_t)>("pread");
    return fails(FileCall::Read, file) ? -1 : real(file, bytes, count, offset);
}

extern "C" ssize_t pwrite(int file, const void *bytes, size_t count, off_t offset)
{
    static auto *const real = next<ssize_t(int, const void *, size_t, off_t)>("pwrite");
    return fails(FileCall::WriteAt, file) ? -1 : real(file, bytes, count, offset);
}

extern "C" int fsync(int file)
{
    static auto *const real = next<int(int)>("fsync");
    return fails(FileCall::Sync, file) ? -1 : real(file);
}

extern "C" int fdatasync(int file)
{
    static auto *const real = next<int(int)>("fdatasync");
    return fails(FileCall::DataSync, file) ? -1 : real(file);
}

extern "C" int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    static auto *const real = next<int(int, const char *, int, const char *)>("renameat");
    return fails(FileCall::Rename, fromFolder, from) ? -1 : real(fromFolder, from, toFolder, to);
}

extern "C" int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    static auto *const real = next<int(int, const char *, int, const char *, unsigned)>("renameat2");
    if (fails(FileCall::RenameToFree, fromFolder, from) || fails(FileCall::RenameOrLinkToFree, fromFolder, from))
        return -1;
    return real(fromFolder, from, toFolder, to, flags);
}

extern "C" int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    static auto *const real = next<int(int, const char *, int, const char *, int)>("linkat");
    return fails(FileCall::RenameOrLinkToFree, fromFolder, from) ? -1 : real(fromFolder, from, toFolder, to, flags);
}

extern "C" int unlinkat(int folder, const char *name, int flags) noexcept
{
    static auto *const real = next<int(int, const char *, int)>("unlinkat");
    return fails(FileCall::Remove, folder, name) ? -1 : real(folder, name, flags);
}
