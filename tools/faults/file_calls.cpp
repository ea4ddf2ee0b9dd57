// A library to be preloaded into a program that is to be killed, or whose disk is to fail, at a chosen call on its files.
//
// KEST_FILE_CALLS names a file of the shape of `Control`, which whoever runs the program fills in at any time.
// KEST_FILE_CALLS_UNDER names the folder whose files count.

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <atomic>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum Kind : unsigned { Create = 1, Write = 2, Sync = 4, Rename = 8, Remove = 16, Change = 32 };

/// Shared with the driving program; see tools/faults/rows/driven.py. All native-endian.
struct Control {
    std::atomic<unsigned> kinds;     ///< Which kinds count, a sum of `Kind`.
    std::atomic<unsigned> countdown; ///< The call at which it happens, 1 being the next; 0: never.
    std::atomic<unsigned> after;     ///< Not 0: once the call is done.
    /// An errno value: this and all later calls fail so. Below 0: they take so many milliseconds. 0: the process is killed.
    std::atomic<int> error;
    std::atomic<unsigned> calls;     ///< How many counted calls there were.
    std::atomic<unsigned> failures;  ///< How many failed.
};

Control *control()
{
    static Control *const shared = [] {
        const char *path = std::getenv("KEST_FILE_CALLS");
        // Not by open(), which is our own and asks for this.
        const int file = path ? int(syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC)) : -1;
        void *memory = file < 0 ? MAP_FAILED : mmap(nullptr, sizeof(Control), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        return memory == MAP_FAILED ? nullptr : static_cast<Control *>(memory);
    }();
    return shared;
}

bool counts(const char *path)
{
    static const char *const under = std::getenv("KEST_FILE_CALLS_UNDER");
    return under && std::strncmp(path, under, std::strlen(under)) == 0;
}

bool counts(int file)
{
    char link[64];
    char path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(link, path, sizeof path - 1);
    if (length <= 0)
        return false;
    path[length] = '\0';
    return counts(path);
}

/// A path that does not begin at the root counts by its folder.
bool counts(int folder, const char *path)
{
    return path[0] == '/' || folder == AT_FDCWD ? counts(path) : counts(folder);
}

[[noreturn]] void die()
{
    kill(getpid(), SIGKILL);
    for (;;)
        pause();
}

/// One call: `work` does it. Whether it counts was found out by the caller.
template<typename Work>
auto called(Kind kind, bool counted, Work work) -> decltype(work())
{
    Control *shared = control();
    if (!shared || !counted || !(shared->kinds.load() & kind))
        return work();
    shared->calls.fetch_add(1);
    unsigned left = shared->countdown.load();
    while (left > 1 && !shared->countdown.compare_exchange_weak(left, left - 1)) { }
    if (left != 1)
        return work();
    const int error = shared->error.load();
    if (error < 0) {
        usleep(useconds_t(-error) * 1000);
        return work();
    }
    if (error > 0) {
        shared->failures.fetch_add(1);
        errno = error;
        return -1;
    }
    if (shared->after.load())
        work();
    die();
}

template<typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int openat(int folder, const char *path, int flags, ...)
{
    static auto *const real = next<int(int, const char *, int, ...)>("openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return called(Create, (flags & O_CREAT) && counts(folder, path), [&] { return real(folder, path, flags, mode); });
}

int open(const char *path, int flags, ...)
{
    static auto *const real = next<int(const char *, int, ...)>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return called(Create, (flags & O_CREAT) && counts(path), [&] { return real(path, flags, mode); });
}

ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const real = next<ssize_t(int, const void *, size_t)>("write");
    return called(Write, counts(file), [&] { return real(file, bytes, count); });
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t offset)
{
    static auto *const real = next<ssize_t(int, const void *, size_t, off_t)>("pwrite");
    return called(Write, counts(file), [&] { return real(file, bytes, count, offset); });
}

int fsync(int file)
{
    static auto *const real = next<int(int)>("fsync");
    return called(Sync, counts(file), [&] { return real(file); });
}

int fdatasync(int file)
{
    static auto *const real = next<int(int)>("fdatasync");
    return called(Sync, counts(file), [&] { return real(file); });
}

int rename(const char *from, const char *to) noexcept
{
    static auto *const real = next<int(const char *, const char *)>("rename");
    return called(Rename, counts(to), [&] { return real(from, to); });
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    static auto *const real = next<int(int, const char *, int, const char *)>("renameat");
    return called(Rename, counts(toFolder, to), [&] { return real(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    static auto *const real = next<int(int, const char *, int, const char *, unsigned)>("renameat2");
    return called(Rename, counts(toFolder, to), [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char *path) noexcept
{
    static auto *const real = next<int(const char *)>("unlink");
    return called(Remove, counts(path), [&] { return real(path); });
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    static auto *const real = next<int(int, const char *, int)>("unlinkat");
    return called(Remove, counts(folder, path), [&] { return real(folder, path, flags); });
}

int ftruncate(int file, off_t length) noexcept
{
    static auto *const real = next<int(int, off_t)>("ftruncate");
    return called(Change, counts(file), [&] { return real(file, length); });
}

int fchmod(int file, mode_t mode) noexcept
{
    static auto *const real = next<int(int, mode_t)>("fchmod");
    return called(Change, counts(file), [&] { return real(file, mode); });
}
}
