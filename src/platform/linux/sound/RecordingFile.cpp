#include "platform/linux/sound/RecordingFile.h"

#include "platform/StateFolder.h"
#include "platform/linux/sound/FreeName.h"
#include "platform/linux/sound/OpenFilePath.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr mode_t fileMode = 0666; // the person's umask decides

constexpr mode_t ownerOnly = 0600;
mode_t usualUmask = 022;

/// See RecordingFile::rememberUmask.
void undoBorrowedUmask(int file)
{
    struct stat status = {};
    const mode_t wanted = fileMode & ~usualUmask;
    if (fstat(file, &status) == 0 && (status.st_mode & 0777) == ownerOnly && wanted != ownerOnly)
        fchmod(file, wanted);
}

bool isSame(int one, int other)
{
    struct stat status = {}, otherStatus = {};
    return fstat(one, &status) == 0 && fstat(other, &otherStatus) == 0 && status.st_ino == otherStatus.st_ino
        && status.st_dev == otherStatus.st_dev;
}

FileDescriptor openFolder(const QByteArray &path)
{
    return FileDescriptor(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

} // namespace

std::optional<RecordingFile> RecordingFile::create(const FileURL &wanted, FileFailure *failure,
                                                   const std::function<void(const FileURL &file)> &announce)
{
    RecordingFile made;
    made.m_folder = openFolder(wanted.deletingLastPathComponent().nativePath());
    const QByteArray wantedName = wanted.nativeLastPathComponent();
    for (int number = 1; made.m_folder.isOpen() && !made.m_file.isOpen() && number <= mostNames; ++number) {
        made.m_name = numberedName(wantedName, number);
        if (isTaken(made.m_folder.get(), made.m_name)) {
            errno = EEXIST;
            continue;
        }
        made.m_url = wanted.deletingLastPathComponent().appendingNativePathComponent(made.m_name);
        if (announce)
            announce(made.m_url);
        made.m_file = FileDescriptor(
            openat(made.m_folder.get(), made.m_name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, fileMode));
        if (!made.m_file.isOpen() && errno != EEXIST)
            break;
    }
    struct stat status = {};
    if (!made.m_file.isOpen() || fstat(made.m_file.get(), &status) < 0) {
        *failure = FileFailure::fromErrno(errno);
        return std::nullopt;
    }
    undoBorrowedUmask(made.m_file.get());
    made.m_device = status.st_dev;
    made.m_inode = status.st_ino;
    return made;
}

std::optional<RecordingFile> RecordingFile::open(const FileURL &file, FileFailure *failure)
{
    RecordingFile opened;
    opened.m_url = file;
    opened.m_name = file.nativeLastPathComponent();
    opened.m_folder = openFolder(file.deletingLastPathComponent().nativePath());
    if (opened.m_folder.isOpen())
        opened.m_file = FileDescriptor(openat(opened.m_folder.get(), opened.m_name.constData(),
                                          O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status = {};
    if (!opened.m_file.isOpen() || fstat(opened.m_file.get(), &status) < 0) {
        *failure = FileFailure::fromErrno(errno);
        return std::nullopt;
    }
    opened.m_device = status.st_dev;
    opened.m_inode = status.st_ino;
    return opened;
}

qint64 RecordingFile::size() const
{
    struct stat status = {};
    return ::fstat(descriptor(), &status) == 0 ? status.st_size : 0;
}

qint64 RecordingFile::birthTime() const
{
    struct statx status = {};
    if (statx(m_file.get(), "", AT_EMPTY_PATH, STATX_BTIME, &status) < 0 || !(status.stx_mask & STATX_BTIME))
        return 0;
    return qint64(status.stx_btime.tv_sec) * 1'000'000'000 + status.stx_btime.tv_nsec;
}

void RecordingFile::rememberUmask()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("Umask:"))
            usualUmask = mode_t(line.mid(6).trimmed().toUInt(nullptr, 8));
    }
}

bool RecordingFile::isHere() const
{
    struct stat status = {};
    return fstatat(m_folder.get(), m_name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0
        && status.st_ino == m_inode && status.st_dev == m_device;
}

bool RecordingFile::isAt(const FileURL &file) const
{
    struct stat status = {};
    return lstat(file.nativePath().constData(), &status) == 0 && status.st_ino == m_inode && status.st_dev == m_device;
}

bool RecordingFile::locate()
{
    if (isHere() && isAt(m_url))
        return true;
    // Renamed or moved by somebody, or its folder was: the kernel knows where the open file is now.
    const FileURL found = pathOfOpenFile(m_file.get());
    if (found.isEmpty())
        return isHere(); // out of reach by any path, but its open folder still has it
    m_url = found;
    if (isHere())
        return true;
    FileDescriptor folder = openFolder(found.deletingLastPathComponent().nativePath());
    if (!folder.isOpen())
        return false;
    m_folder = std::move(folder);
    m_name = found.nativeLastPathComponent();
    return isHere();
}

bool RecordingFile::locateFolder()
{
    FolderURL place = pathOfOpenFile(m_folder.get());
    if (place.isEmpty()) {
        place = m_url.deletingLastPathComponent();
        return makePrivateFolder(place.nativePath()) && saveIn(place);
    }
    m_url = place.appendingNativePathComponent(m_name);
    return true;
}

bool RecordingFile::saveIn(const FolderURL &folder)
{
    FileDescriptor opened = openFolder(folder.nativePath());
    if (!opened.isOpen() || isSame(opened.get(), m_folder.get()))
        return false;
    m_folder = std::move(opened);
    m_url = folder.appendingNativePathComponent(m_name);
    return true;
}

std::optional<RecordingReplacement> RecordingFile::createReplacement(FileFailure *failure)
{
    if (locate() || locateFolder())
        return RecordingReplacement::create(m_folder.get(), m_inode, failure);
    *failure = FileFailure::fromErrno(errno);
    return std::nullopt;
}

std::optional<FileFailure> RecordingFile::replace(const RecordingReplacement &replacement)
{
    const auto incomplete = replacement.complete(m_file.get());
    const bool isThere = locate(); // not when it was deleted, before or just now
    if (incomplete && isThere)
        replacement.remove();
    if (incomplete)
        return incomplete;
    if (!isThere)
        return addBeside(replacement);
    if (!replacement.renameOver(m_folder.get(), m_name))
        return notReplaced(replacement, FileFailure::fromErrno(errno));
    // A file system that cannot do this has its own order of things; the file itself is safe.
    fsync(m_folder.get());
    return std::nullopt;
}

std::optional<FileFailure> RecordingFile::notReplaced(const RecordingReplacement &replacement, const FileFailure &failure)
{
    // Over SMB, Linux may have let go of the old file before it found that the new one cannot take its place.
    if (!isHere())
        return addBeside(replacement);
    replacement.remove();
    return failure;
}

std::optional<FileFailure> RecordingFile::addBeside(const RecordingReplacement &replacement)
{
    const QByteArray name = locateFolder() ? replacement.renameToFree(m_folder.get(), m_name) : QByteArray();
    if (name.isEmpty())
        return FileFailure::fromErrno(errno); // not removed, even so: nothing else is left of the recording
    m_name = name;
    m_url = m_url.deletingLastPathComponent().appendingNativePathComponent(name);
    fsync(m_folder.get());
    return std::nullopt;
}

void RecordingFile::remove()
{
    if (locate())
        unlinkat(m_folder.get(), m_name.constData(), 0);
}

} // namespace kest
