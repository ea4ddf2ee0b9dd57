#include "platform/linux/desktop/FolderSearch.h"

#include <QDeadlineTimer>
#include <QSet>

#include <array>
#include <deque>
#include <memory>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace kest {

namespace {

// File systems whose next answer may be a network away. FUSE is among them: it does not tell what is behind it.
constexpr std::array<unsigned long, 10> remoteFileSystems {
    NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, AFS_SUPER_MAGIC,
    CODA_SUPER_MAGIC, CEPH_SUPER_MAGIC, V9FS_MAGIC, FUSE_SUPER_MAGIC, AUTOFS_SUPER_MAGIC,
};

bool isRemote(const QByteArray &folder)
{
    struct statfs info = {};
    if (::statfs(folder.constData(), &info) != 0)
        return true;
    const auto type = static_cast<unsigned long>(info.f_type);
    return std::ranges::find(remoteFileSystems, type) != remoteFileSystems.end();
}

// Device and inode of a folder that is no symbolic link; nothing for anything else.
std::optional<std::pair<quint64, quint64>> placeOf(const QByteArray &path)
{
    struct statx info = {};
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
    if (::statx(AT_FDCWD, path.constData(), flags, STATX_TYPE | STATX_INO, &info) != 0 || !S_ISDIR(info.stx_mode))
        return {};
    return std::pair<quint64, quint64>(makedev(info.stx_dev_major, info.stx_dev_minor), info.stx_ino);
}

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

OpenFolder openFolder(const QByteArray &path)
{
    const int fd = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    OpenFolder folder(fd >= 0 ? ::fdopendir(fd) : nullptr);
    if (fd >= 0 && !folder)
        ::close(fd);
    return folder;
}

bool isDotOrDotDot(const char *name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

class Search
{
public:
    Search(const FolderIdentity &identity, int entries) : m_identity(identity), m_entriesLeft(entries) {}

    std::optional<QByteArray> searchTree(const QByteArray &root, int entries, const QDeadlineTimer &deadline)
    {
        const auto rootPlace = placeOf(root);
        if (!rootPlace || isRemote(root))
            return {};
        m_floor = m_entriesLeft - entries;
        std::deque<QByteArray> waiting { root };
        while (!waiting.empty() && m_entriesLeft > m_floor && !deadline.hasExpired()) {
            const QByteArray folder = waiting.front();
            waiting.pop_front();
            const auto place = placeOf(folder);
            if (!place || place->first != rootPlace->first || m_seen.contains(*place))
                continue;
            if (auto found = readFolder(folder, waiting, deadline))
                return found;
            m_seen.insert(*place);
        }
        return {};
    }

    int entriesLeft() const { return m_entriesLeft; }

private:
    // The folder, when it lies directly in `folder`; else what lies there waits for its turn.
    std::optional<QByteArray> readFolder(const QByteArray &folder, std::deque<QByteArray> &waiting,
                                         const QDeadlineTimer &deadline)
    {
        const OpenFolder open = openFolder(folder);
        while (const dirent *entry = open ? ::readdir(open.get()) : nullptr) {
            if (--m_entriesLeft <= m_floor || (m_entriesLeft % 256 == 0 && deadline.hasExpired()))
                return {};
            if (isDotOrDotDot(entry->d_name) || (entry->d_type != DT_DIR && entry->d_type != DT_UNKNOWN))
                continue;
            const QByteArray path = (folder == "/" ? QByteArray() : folder) + '/' + entry->d_name;
            if (isIt(path, entry->d_ino))
                return path;
            if (entry->d_name[0] != '.')
                waiting.push_back(path);
        }
        return {};
    }

    bool isIt(const QByteArray &path, quint64 inode) const
    {
        if (inode != m_identity.inode || !placeOf(path))
            return false;
        const auto found = FolderIdentity::ofFolder(path);
        return found && found->isSameFolder(m_identity);
    }

    const FolderIdentity m_identity;
    int m_entriesLeft = 0;
    int m_floor = 0; // where the present root's share ends
    QSet<std::pair<quint64, quint64>> m_seen;
};

} // namespace

std::optional<QByteArray> findFolder(const FolderIdentity &identity, const QList<QByteArray> &roots,
                                     const SearchBounds &bounds)
{
    const QDeadlineTimer end(bounds.time);
    Search search(identity, bounds.entries);
    for (qsizetype i = 0; i < roots.size(); ++i) {
        const int share = i + 1 == roots.size() ? 1 : 2;
        const QDeadlineTimer deadline(end.remainingTime() / share);
        if (auto found = search.searchTree(roots[i], search.entriesLeft() / share, deadline))
            return found;
    }
    return {};
}

} // namespace kest
