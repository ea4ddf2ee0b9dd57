#include "platform/linux/sound/RecordingReplacement.h"

#include "platform/linux/sound/FreeName.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace kest {

namespace {

/// By inode, not by name: a name of 255 bytes leaves no room, and the next start must find it again.
QByteArray hiddenName(quint64 inode)
{
    return ".kest-" + QByteArray::number(inode) + ".finishing";
}

} // namespace

std::optional<RecordingReplacement> RecordingReplacement::create(int folder, quint64 inode, FileFailure *failure)
{
    RecordingReplacement made;
    made.m_folder = FileDescriptor(fcntl(folder, F_DUPFD_CLOEXEC, 0));
    made.m_name = hiddenName(inode);
    made.m_file = FileDescriptor(openat(folder, made.m_name.constData(),
                                        O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (made.m_folder.isOpen() && made.m_file.isOpen())
        return made;
    *failure = FileFailure::fromErrno(errno);
    return std::nullopt;
}

bool RecordingReplacement::isHidden() const
{
    return isTaken(m_folder.get(), m_name);
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
