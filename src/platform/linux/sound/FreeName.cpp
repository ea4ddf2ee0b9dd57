#include "platform/linux/sound/FreeName.h"

#include "platform/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

/// Not every file system knows the change of name that replaces nothing, nor links.
bool isUnknownThere(int error)
{
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM;
}

bool linkAndUnlink(int fromFolder, const QByteArray &from, int folder, const QByteArray &name)
{
    if (linkat(fromFolder, from.constData(), folder, name.constData(), 0) < 0)
        return false;
    unlinkat(fromFolder, from.constData(), 0);
    return true;
}

/// What is replaced then is an empty file of our own.
bool takeAndReplace(int fromFolder, const QByteArray &from, int folder, const QByteArray &name)
{
    FileDescriptor taken(openat(folder, name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!taken.isOpen())
        return false;
    taken.close(); // not every file system replaces what is open
    if (renameat(fromFolder, from.constData(), folder, name.constData()) == 0)
        return true;
    const int error = errno;
    unlinkat(folder, name.constData(), 0);
    errno = error;
    return false;
}

bool renameReplacingNothing(int fromFolder, const QByteArray &from, int folder, const QByteArray &name)
{
    if (renameat2(fromFolder, from.constData(), folder, name.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (!isUnknownThere(errno))
        return false;
    if (linkAndUnlink(fromFolder, from, folder, name))
        return true;
    return isUnknownThere(errno) && takeAndReplace(fromFolder, from, folder, name);
}

/// As many characters of UTF-8 as that many bytes hold.
QByteArray wholeCharacters(const QByteArray &text, qsizetype bytes)
{
    qsizetype end = std::clamp(bytes, qsizetype(0), text.size());
    while (end > 0 && end < text.size() && (uchar(text[end]) & 0xc0) == 0x80)
        --end;
    return text.left(end);
}

} // namespace

QByteArray numberedName(const QByteArray &name, int number)
{
    if (number == 1)
        return name;
    const qsizetype dot = name.lastIndexOf('.');
    const qsizetype end = dot > 0 ? dot : name.size();
    const QByteArray tail = " " + QByteArray::number(number) + name.mid(end);
    return wholeCharacters(name.left(end), NAME_MAX - tail.size()) + tail;
}

bool isTaken(int folder, const QByteArray &name)
{
    struct stat status = {};
    return fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

QByteArray renameToFree(int fromFolder, const QByteArray &from, int folder, const QByteArray &wanted)
{
    for (int number = 1; number <= mostNames; ++number) {
        const QByteArray name = numberedName(wanted, number);
        errno = EEXIST;
        if (!isTaken(folder, name) && renameReplacingNothing(fromFolder, from, folder, name))
            return name;
        if (errno != EEXIST)
            return {};
    }
    return {};
}

} // namespace kest
