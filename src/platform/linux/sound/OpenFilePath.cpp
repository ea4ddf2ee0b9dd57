#include "platform/linux/sound/OpenFilePath.h"

#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

/// Closed, they are gone for good: what NFS, SMB and libfuse make of a file that is deleted while it is open.
bool isNameOfADeletedFile(const QByteArray &name)
{
    return name.startsWith(".nfs") || name.startsWith(".__smbfile") || name.startsWith(".fuse_hidden");
}

bool isAt(int file, const QByteArray &path)
{
    struct stat opened = {}, there = {};
    return fstat(file, &opened) == 0 && lstat(path.constData(), &there) == 0 && opened.st_ino == there.st_ino
        && opened.st_dev == there.st_dev;
}

} // namespace

FileURL pathOfOpenFile(int file)
{
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file);
    QByteArray path(PATH_MAX, '\0');
    const ssize_t length = readlink(link.constData(), path.data(), size_t(path.size()));
    if (length <= 0)
        return {};
    path.truncate(length);
    if (!isAt(file, path)) // what the kernel says of a deleted file is no path
        return {};
    const FileURL found = FileURL::fromNativePath(path);
    return isNameOfADeletedFile(found.nativeLastPathComponent()) ? FileURL() : found;
}

} // namespace kest
