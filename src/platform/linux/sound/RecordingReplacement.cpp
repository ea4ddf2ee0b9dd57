#include "platform/linux/sound/RecordingReplacement.h"

#include "platform/linux/sound/FreeName.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr int mostHiddenNames = 9;

/// By inode, not by name: a name of 255 bytes leaves no room, and the next start must find it again.
QByteArray hiddenName(quint64 inode, int number)
{
    const QByteArray name = ".kest-" + QByteArray::number(inode);
    return (number == 1 ? name : name + '-' + QByteArray::number(number)) + ".finishing";
}

/// Always a new file: one that is there may be somebody else's, put there to become the recording.
FileDescriptor makeNew(int folder, const QByteArray &name)
{
    constexpr mode_t ownerOnly = 0600; // until it is whole
    const auto make = [&] {
        return FileDescriptor(openat(folder, name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, ownerOnly));
    };
    FileDescriptor made = make();
    if (made.isOpen() || errno != EEXIST)
        return made;
    unlinkat(folder, name.constData(), 0); // most likely what a killed program left
    return make();
}

} // namespace

std::optional<RecordingReplacement> RecordingReplacement::create(int folder, quint64 inode, FileFailure *failure)
{
    RecordingReplacement made;
    made.m_folder = FileDescriptor(fcntl(folder, F_DUPFD_CLOEXEC, 0));
    // Where somebody else's cannot be taken away, the next name serves.
    for (int number = 1; made.m_folder.isOpen() && !made.m_file.isOpen() && number <= mostHiddenNames; ++number) {
        made.m_name = hiddenName(inode, number);
        made.m_file = makeNew(folder, made.m_name);
        if (!made.m_file.isOpen() && errno != EEXIST)
            break;
    }
    if (made.m_file.isOpen())
        return made;
    *failure = FileFailure::fromErrno(errno);
    return std::nullopt;
}

std::vector<RecordingReplacement> RecordingReplacement::leftIn(int folder, quint64 inode)
{
    std::vector<RecordingReplacement> found;
    for (int number = 1; number <= mostHiddenNames; ++number) {
        RecordingReplacement left;
        left.m_name = hiddenName(inode, number);
        if (!isTaken(folder, left.m_name))
            continue;
        left.m_folder = FileDescriptor(fcntl(folder, F_DUPFD_CLOEXEC, 0));
        left.m_file = FileDescriptor(
            openat(folder, left.m_name.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        found.push_back(std::move(left));
    }
    return found;
}

bool RecordingReplacement::isHidden() const
{
    return isTaken(m_folder.get(), m_name);
}

std::optional<FileFailure> RecordingReplacement::complete(int recording) const
{
    struct stat status = {};
    fstat(recording, &status);
    const timespec times[] = {status.st_atim, status.st_mtim}; // it was spoken then, whenever it is finished
    fchmod(m_file.get(), status.st_mode & 07777);
    futimens(m_file.get(), times);
    return fsync(m_file.get()) < 0 ? std::optional(FileFailure::fromErrno(errno)) : std::nullopt;
}

bool RecordingReplacement::renameOver(int folder, const QByteArray &name) const
{
    return renameat(m_folder.get(), m_name.constData(), folder, name.constData()) == 0;
}

QByteArray RecordingReplacement::renameToFree(int folder, const QByteArray &wanted) const
{
    return kest::renameToFree(m_folder.get(), m_name, folder, wanted);
}

void RecordingReplacement::remove() const
{
    unlinkat(m_folder.get(), m_name.constData(), 0);
}

} // namespace kest
