#include "platform/linux/desktop/TrashFolder.h"

#include <QDateTime>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace kest {

namespace {

constexpr int numberedNames = 100;
constexpr int randomNames = 10;
constexpr const char *noteSuffix = ".trashinfo";
constexpr const char *filesFolder = "/files/";
constexpr const char *infoFolder = "/info/";

bool makeFolder(int in, const char *name)
{
    return ::mkdirat(in, name, S_IRWXU) == 0 || errno == EEXIST;
}

FileDescriptor openFolder(int in, const char *name)
{
    return FileDescriptor(::openat(in, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool makePath(const QByteArray &path)
{
    for (auto slash = path.indexOf('/', 1); slash > 0; slash = path.indexOf('/', slash + 1)) {
        if (!makeFolder(AT_FDCWD, path.left(slash).constData()))
            return false;
    }
    return makeFolder(AT_FDCWD, path.constData());
}

bool belongsTo(const FileDescriptor &folder, unsigned uid)
{
    struct stat status {};
    if (::fstat(folder.get(), &status) != 0)
        return false;
    if (status.st_uid == uid)
        return true;
    errno = EPERM;
    return false;
}

bool isSticky(const FileDescriptor &folder)
{
    struct stat status {};
    if (::fstat(folder.get(), &status) != 0)
        return false;
    if (status.st_mode & S_ISVTX)
        return true;
    errno = EPERM;
    return false;
}

bool onOneFileSystem(const FileDescriptor &one, const FileDescriptor &other)
{
    struct stat first {}, second {};
    return ::fstat(one.get(), &first) == 0 && ::fstat(other.get(), &second) == 0 && first.st_dev == second.st_dev;
}

// The name, cut so that it keeps its extension and its note's name still fits the file system.
QByteArray fitted(const QByteArray &name, const QByteArray &number)
{
    const auto dot = name.lastIndexOf('.');
    const QByteArray extension = dot > 0 && name.size() - dot <= 16 ? name.mid(dot) : QByteArray();
    QByteArray stem = name.left(name.size() - extension.size());
    const auto most = NAME_MAX - qstrlen(noteSuffix) - extension.size() - number.size();
    if (static_cast<size_t>(stem.size()) > most) {
        auto end = static_cast<qsizetype>(most);
        while (end > 1 && (static_cast<unsigned char>(stem[end]) & 0xc0) == 0x80)
            --end; // not inside a character
        stem.truncate(end);
    }
    return stem + number + extension;
}

QByteArray candidate(const QByteArray &name, int attempt)
{
    if (attempt == 0)
        return fitted(name, {});
    if (attempt < numberedNames)
        return fitted(name, '.' + QByteArray::number(attempt + 1));
    return fitted(name, '.' + QByteArray::number(QRandomGenerator::system()->generate64(), 16));
}

QByteArray note(const QByteArray &originalPath)
{
    return "[Trash Info]\nPath=" + originalPath.toPercentEncoding("/")
        + "\nDeletionDate=" + QDateTime::currentDateTime().toString(u"yyyy-MM-ddThh:mm:ss").toLatin1() + '\n';
}

} // namespace

std::optional<TrashFolder> TrashFolder::home(const QByteArray &path)
{
    if (!makePath(path))
        return {};
    // People do move their trash elsewhere and leave a link: followed here, and only here.
    return opened(path, FileDescriptor(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

std::optional<TrashFolder> TrashFolder::administrators(const QByteArray &top, unsigned uid)
{
    const FileDescriptor shared = openFolder(AT_FDCWD, (top + "/.Trash").constData());
    if (!shared.isOpen() || !isSticky(shared))
        return {};
    const QByteArray name = QByteArray::number(uid);
    if (!makeFolder(shared.get(), name.constData()))
        return {};
    FileDescriptor base = openFolder(shared.get(), name.constData());
    const QByteArray path = top + "/.Trash/" + name;
    return base.isOpen() && belongsTo(base, uid) ? opened(path, std::move(base)) : std::nullopt;
}

std::optional<TrashFolder> TrashFolder::own(const QByteArray &top, unsigned uid)
{
    const QByteArray path = top + "/.Trash-" + QByteArray::number(uid);
    if (!makeFolder(AT_FDCWD, path.constData()))
        return {};
    FileDescriptor base = openFolder(AT_FDCWD, path.constData());
    return base.isOpen() && belongsTo(base, uid) ? opened(path, std::move(base)) : std::nullopt;
}

std::optional<TrashFolder> TrashFolder::opened(const QByteArray &path, FileDescriptor base)
{
    if (!base.isOpen() || !makeFolder(base.get(), "files") || !makeFolder(base.get(), "info"))
        return {};
    TrashFolder folder;
    folder.m_path = path;
    folder.m_files = openFolder(base.get(), "files");
    folder.m_info = openFolder(base.get(), "info");
    if (!folder.m_files.isOpen() || !folder.m_info.isOpen())
        return {};
    return folder;
}

QByteArray TrashFolder::put(const FileDescriptor &from, const QByteArray &name, const QByteArray &originalPath)
{
    if (!onOneFileSystem(from, m_files)) {
        errno = EXDEV;
        return {};
    }
    for (int attempt = 0; attempt < numberedNames + randomNames; ++attempt) {
        const QByteArray as = candidate(name, attempt);
        // The note comes first: making it claims the name.
        if (writeNote(as, originalPath)) {
            if (moveIn(from, name, as))
                return m_path + filesFolder + as;
            const int reason = errno;
            ::unlinkat(m_info.get(), (as + noteSuffix).constData(), 0);
            errno = reason;
        }
        if (errno != EEXIST)
            return {};
    }
    return {};
}

void TrashFolder::removeNote(const QByteArray &path)
{
    const auto files = path.lastIndexOf(filesFolder);
    if (files >= 0)
        ::unlink((path.left(files) + infoFolder + path.mid(files + qstrlen(filesFolder)) + noteSuffix).constData());
}

bool TrashFolder::writeNote(const QByteArray &name, const QByteArray &originalPath)
{
    const QByteArray file = name + noteSuffix;
    FileDescriptor fd(::openat(m_info.get(), file.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
    if (!fd.isOpen())
        return false;
    const QByteArray text = note(originalPath);
    errno = ENOSPC; // what a short write means
    if (::write(fd.get(), text.constData(), static_cast<size_t>(text.size())) == text.size() && fd.close())
        return true;
    const int reason = errno;
    ::unlinkat(m_info.get(), file.constData(), 0);
    errno = reason;
    return false;
}

bool TrashFolder::moveIn(const FileDescriptor &from, const QByteArray &name, const QByteArray &as)
{
    if (::renameat2(from.get(), name.constData(), m_files.get(), as.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // Some network file systems cannot promise not to replace: look first. The note keeps others off the name.
    struct stat status {};
    if (::fstatat(m_files.get(), as.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return false;
    }
    return ::renameat(from.get(), name.constData(), m_files.get(), as.constData()) == 0;
}

} // namespace kest
