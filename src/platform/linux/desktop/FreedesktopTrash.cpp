#include "platform/linux/desktop/FreedesktopTrash.h"

#include "platform/linux/desktop/PosixFolderContents.h"

#include <QDir>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace kest {

namespace {

// Which mounted file system something lies on. Both numbers: folders mounted a second time share the device, and parts
// of one btrfs volume share the mount.
struct Place {
    quint64 mount = 0;
    quint64 device = 0;

    friend bool operator==(const Place &, const Place &) = default;
};

std::optional<Place> placeOf(const QByteArray &path)
{
    struct statx status {};
    if (::statx(AT_FDCWD, path.constData(), AT_SYMLINK_NOFOLLOW, STATX_MNT_ID, &status) != 0)
        return {};
    const quint64 device = (quint64(status.stx_dev_major) << 32) | status.stx_dev_minor;
    return Place {status.stx_mask & STATX_MNT_ID ? status.stx_mnt_id : 0, device};
}

QByteArray parentOf(const QByteArray &path)
{
    const auto slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArray("/") : path.left(slash);
}

QByteArray withoutLinks(const QByteArray &folder)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(folder.constData(), nullptr), &std::free);
    return QByteArray(real.get());
}

// The topmost folder that is still on the same file system.
QByteArray topOf(QByteArray folder)
{
    const auto place = placeOf(folder);
    while (folder != "/" && placeOf(parentOf(folder)) == place)
        folder = parentOf(folder);
    return folder;
}

// By the base directory specification a relative XDG_DATA_HOME counts as none.
QByteArray homeTrash()
{
    QByteArray data = qgetenv("XDG_DATA_HOME");
    if (!data.startsWith('/'))
        data = QFile::encodeName(QDir::homePath()) + "/.local/share";
    return data + "/Trash";
}

} // namespace

// One thing to be trashed: its folder, without links in the way, and its name there.
struct FreedesktopTrash::Item {
    QByteArray folder;
    QByteArray name;
    FileDescriptor folderFd;

    QByteArray path() const { return folder == "/" ? '/' + name : folder + '/' + name; }
    QByteArray putInto(TrashFolder &trash, const QByteArray &originalPath) const
    {
        return trash.put(folderFd, name, originalPath);
    }
    QByteArray putAtTop() const;
};

/// Where it lies then; empty when it could not be put there.
QByteArray FreedesktopTrash::Item::putAtTop() const
{
    const QByteArray top = topOf(folder);
    const QByteArray relative = path().mid(top == "/" ? 1 : top.size() + 1);
    auto shared = TrashFolder::administrators(top, ::getuid());
    QByteArray place = shared ? putInto(*shared, relative) : QByteArray();
    if (!place.isEmpty())
        return place;
    auto own = TrashFolder::own(top, ::getuid());
    return own ? putInto(*own, relative) : QByteArray();
}

QByteArray FreedesktopTrash::putInHomeTrash(const Item &item)
{
    const QByteArray path = homeTrash();
    const bool known = m_home && m_homePath == path;
    const QByteArray place = known ? item.putInto(*m_home, item.path()) : QByteArray();
    if (!place.isEmpty())
        return place;
    if (known && errno != ENOENT) // that is: it was removed since, and is made again
        return {};
    m_homePath = path;
    m_home = TrashFolder::home(path);
    return m_home ? item.putInto(*m_home, item.path()) : QByteArray();
}

QByteArray FreedesktopTrash::trash(const QByteArray &path)
{
    struct stat status {};
    if (::lstat(path.constData(), &status) != 0)
        return {};
    Item item {{}, path.mid(path.lastIndexOf('/') + 1), {}};
    // First the folder, then its path: another one may take its place there at any moment.
    item.folderFd = FileDescriptor(::open(parentOf(path).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    item.folder = item.folderFd.isOpen() ? withoutLinks("/proc/self/fd/" + QByteArray::number(item.folderFd.get())) : QByteArray();
    if (item.folder.isEmpty())
        return {};
    const QByteArray place = putInHomeTrash(item);
    return place.isEmpty() ? item.putAtTop() : place;
}

bool FreedesktopTrash::trashItem(const FileURL &atURL, Error *error, FileURL *resultingItemURL)
{
    const QByteArray place = trash(atURL.nativePath());
    if (!place.isEmpty()) {
        if (resultingItemURL)
            *resultingItemURL = FileURL::fromNativePath(place);
        return true;
    }
    handBack(error, posixError(errno, QStringLiteral("\u201c%1\u201d could not be moved to the Trash")
                                          .arg(atURL.displayPath())));
    return false;
}

bool FreedesktopTrash::putBack(const FileURL &trashedItem, const FileURL &toURL, Error *error)
{
    if (!PosixFolderContents().moveItem(trashedItem, toURL, error))
        return false;
    TrashFolder::removeNote(trashedItem.nativePath());
    return true;
}

} // namespace kest
