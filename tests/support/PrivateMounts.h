#pragma once

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace kest::testing {

/// Gives this process mounts of its own, which end with it. Call it first in
/// main(), while there is one thread. Root, or any user whom the kernel lets
/// make a user namespace. False when neither is so.
inline bool enterPrivateMounts()
{
    const auto uid = QByteArray::number(::getuid());
    const auto gid = QByteArray::number(::getgid());
    const auto write = [](const char *path, const QByteArray &text) {
        QFile file(QString::fromLatin1(path));
        return file.open(QFile::WriteOnly | QFile::Unbuffered) && file.write(text) == text.size();
    };
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        write("/proc/self/setgroups", "deny");
        if (!write("/proc/self/uid_map", "0 " + uid + " 1") || !write("/proc/self/gid_map", "0 " + gid + " 1"))
            return false;
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// The same for a test that is nothing without them: ends in words where this
/// machine refuses.
inline void requirePrivateMounts()
{
    if (!enterPrivateMounts())
        qFatal("This machine lets no process have mounts of its own");
}

/// Makes permissions bind this process also when it is root's.
inline bool dropCapabilities()
{
    __user_cap_header_struct header = { _LINUX_CAPABILITY_VERSION_3, 0 };
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return ::syscall(SYS_capset, &header, none) == 0;
}

/// A file system of its own in memory, at an existing folder, until destroyed.
class SmallFileSystem
{
public:
    /// `options` as mount takes them, for example "size=16k".
    SmallFileSystem(QByteArray at, const char *options) : m_at(std::move(at))
    {
        m_mounted = ::mount("none", m_at.constData(), "tmpfs", 0, options) == 0;
    }
    ~SmallFileSystem()
    {
        if (m_mounted)
            ::umount2(m_at.constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallFileSystem)

    bool isMounted() const { return m_mounted; }

    bool makeReadOnly() { return ::mount(nullptr, m_at.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0; }
    bool makeWritable() { return ::mount(nullptr, m_at.constData(), nullptr, MS_REMOUNT, nullptr) == 0; }

    /// Fills what room there is, but for `leaving` bytes.
    void fill(qint64 leaving = 0) const
    {
        const int fd = ::open((m_at + "/filler").constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        const QByteArray block(512, 'x');
        while (fd >= 0 && ::write(fd, block.constData(), static_cast<size_t>(block.size())) > 0) { }
        const off_t end = ::lseek(fd, 0, SEEK_END);
        if (leaving > 0 && ::ftruncate(fd, end - leaving) != 0)
            qFatal("cannot leave room on the small disk");
        ::close(fd);
    }

    void makeRoom() const { ::unlink((m_at + "/filler").constData()); }

private:
    QByteArray m_at;
    bool m_mounted = false;
};

} // namespace kest::testing
