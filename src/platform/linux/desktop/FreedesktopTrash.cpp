#include "platform/linux/desktop/FreedesktopTrash.h"

#include "platform/linux/desktop/TrashFolder.h"

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

// One thing to be trashed: its folder, without links in the way, and its name there.
struct Item {
    QByteArray folder;
    QByteArray name;
    FileDescriptor folderFd;

    QByteArray path() const { return folder == "/" ? '/' + name : folder + '/' + name; }
};

bool putInHomeTrash(const Item &item)
{
    auto trash = TrashFolder::home(homeTrash());
    return trash && trash->put(item.folderFd, item.name, item.path());
}

bool putAtTop(const Item &item)
{
    const QByteArray top = topOf(item.folder);
    const QByteArray relative = item.path().mid(top == "/" ? 1 : top.size() + 1);
    auto shared = TrashFolder::administrators(top, ::getuid());
    if (shared && shared->put(item.folderFd, item.name, relative))
        return true;
    auto own = TrashFolder::own(top, ::getuid());
    return own && own->put(item.folderFd, item.name, relative);
}

bool trash(const QByteArray &path)
{
    struct stat status {};
    if (::lstat(path.constData(), &status) != 0)
        return false;
    Item item {withoutLinks(parentOf(path)), path.mid(path.lastIndexOf('/') + 1), {}};
    item.folderFd = FileDescriptor(::open(item.folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!item.folderFd.isOpen())
        return false;
    return putInHomeTrash(item) || putAtTop(item);
}

} // namespace

bool FreedesktopTrash::trashItem(const FileURL &atURL, Error *error)
{
    if (trash(atURL.nativePath()))
        return true;
    handBack(error, posixError(errno, QStringLiteral("\u201c%1\u201d could not be moved to the Trash")
                                          .arg(atURL.displayPath())));
    return false;
}

} // namespace kest
