#pragma once

#include <QByteArray>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace kest::testing {

/// A file system at an existing folder whose server never answers, as a network
/// share's whose server is gone: whoever looks into it waits until this object
/// is destroyed. Needs `enterPrivateMounts()` and /dev/fuse.
class HangingFileSystem
{
public:
    explicit HangingFileSystem(QByteArray at) : m_at(std::move(at)), m_server(::open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        const QByteArray options = "fd=" + QByteArray::number(m_server) + ",rootmode=40000,user_id=0,group_id=0";
        m_mounted = m_server >= 0
            && ::mount("none", m_at.constData(), "fuse", MS_NOSUID | MS_NODEV, options.constData()) == 0;
    }
    ~HangingFileSystem()
    {
        // First the server's end: it lets go of who waits.
        ::close(m_server);
        if (m_mounted)
            ::umount2(m_at.constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(HangingFileSystem)

    bool isMounted() const { return m_mounted; }

private:
    QByteArray m_at;
    int m_server;
    bool m_mounted = false;
};

} // namespace kest::testing
