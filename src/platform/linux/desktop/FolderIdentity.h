#pragma once

#include <QByteArray>

#include <optional>

namespace kest {

/// What makes a folder itself, wherever it lies.
///
/// An inode number alone is given away again as soon as a folder is deleted;
/// together with the moment of birth it is not, unless the folder lived no
/// longer than a tick of the kernel (1 to 10 ms). Device numbers may change
/// from one start of the system to the next.
struct FolderIdentity {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 birthSeconds = 0;       ///< Since 1970, UTC.
    quint32 birthNanoseconds = 0;
    bool hasBirth = false;         ///< False where the file system keeps no birth time.

    /// Of the folder at `path` (symbolic links are followed), or nothing; then
    /// errno says why: ENOTDIR for anything but a folder.
    static std::optional<FolderIdentity> ofFolder(const QByteArray &path);

    /// Inode and birth are equal; where there is no birth time, inode and
    /// device are.
    bool isSameFolder(const FolderIdentity &other) const;

    friend bool operator==(const FolderIdentity &, const FolderIdentity &) = default;
};

} // namespace kest
