#include "platform/linux/desktop/PosixFolderContents.h"

#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

std::optional<FileTime> creationDate(int folder, const char *name)
{
    struct statx status {};
    if (::statx(folder, name, AT_SYMLINK_NOFOLLOW, STATX_BTIME, &status) != 0 || !(status.stx_mask & STATX_BTIME))
        return {};
    const auto &birth = status.stx_btime;
    if (birth.tv_sec == 0 && birth.tv_nsec == 0)
        return {};
    return FileTime(std::chrono::seconds(birth.tv_sec) + std::chrono::nanoseconds(birth.tv_nsec));
}

/// As rename(2), but fails with EEXIST where that would replace something.
bool renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    // Within a path a NUL would end it: the file would get another name than the one asked for.
    errno = EINVAL;
    if (from.contains('\0') || to.contains('\0'))
        return false;
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // Some network file systems cannot promise that. A link never replaces anything on any of them.
    if (::link(from.constData(), to.constData()) != 0)
        return false;
    if (::unlink(from.constData()) == 0)
        return true;
    const int reason = errno;
    ::unlink(to.constData());
    errno = reason;
    return false;
}

} // namespace

std::vector<FolderEntry> PosixFolderContents::contentsOfDirectory(const FolderURL &folder, Error *error)
{
    const std::unique_ptr<DIR, CloseFolder> open(::opendir(folder.nativePath().constData()));
    if (!open) {
        handBack(error, posixError(errno, QStringLiteral("\u201c%1\u201d could not be read").arg(folder.displayPath())));
        return {};
    }
    std::vector<FolderEntry> entries;
    while (const dirent *entry = ::readdir(open.get())) {
        if (entry->d_name[0] != '.')
            entries.push_back({QByteArray(entry->d_name), creationDate(::dirfd(open.get()), entry->d_name)});
    }
    return entries;
}

bool PosixFolderContents::removeItem(const FileURL &atURL, Error *error)
{
    std::error_code failure;
    const auto removed = std::filesystem::remove_all(atURL.nativePath().toStdString(), failure);
    if (removed == 0 && !failure)
        failure = std::make_error_code(std::errc::no_such_file_or_directory);
    if (!failure)
        return true;
    handBack(error, posixError(failure.value(), QStringLiteral("\u201c%1\u201d could not be deleted")
                                                    .arg(atURL.displayPath())));
    return false;
}

bool PosixFolderContents::moveItem(const FileURL &atURL, const FileURL &toURL, Error *error)
{
    if (renameWithoutReplacing(atURL.nativePath(), toURL.nativePath()))
        return true;
    handBack(error, posixError(errno, QStringLiteral("\u201c%1\u201d could not be moved").arg(atURL.displayPath())));
    return false;
}

} // namespace kest
