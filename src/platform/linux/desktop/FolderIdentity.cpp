#include "platform/linux/desktop/FolderIdentity.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace kest {

std::optional<FolderIdentity> FolderIdentity::ofFolder(const QByteArray &path)
{
    struct statx info = {};
    if (::statx(AT_FDCWD, path.constData(), AT_STATX_DONT_SYNC, STATX_TYPE | STATX_INO | STATX_BTIME, &info) != 0)
        return {};
    if (!S_ISDIR(info.stx_mode)) {
        errno = ENOTDIR;
        return {};
    }
    FolderIdentity identity;
    identity.device = makedev(info.stx_dev_major, info.stx_dev_minor);
    identity.inode = info.stx_ino;
    identity.hasBirth = (info.stx_mask & STATX_BTIME) != 0;
    if (identity.hasBirth) {
        identity.birthSeconds = info.stx_btime.tv_sec;
        identity.birthNanoseconds = info.stx_btime.tv_nsec;
    }
    return identity;
}

bool FolderIdentity::isSameFolder(const FolderIdentity &other) const
{
    if (inode != other.inode)
        return false;
    if (hasBirth && other.hasBirth)
        return birthSeconds == other.birthSeconds && birthNanoseconds == other.birthNanoseconds;
    return device == other.device;
}

} // namespace kest
