#include "platform/linux/sound/FreeName.h"

#include "platform/FileDescriptor.h"

#include <cerrno>
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

} // namespace

QByteArray numberedName(const QByteArray &name, int number)
{
    if (number == 1)
        return name;
    const qsizetype dot = name.lastIndexOf('.');
    const QByteArray suffix = " " + QByteArray::number(number);
    return dot > 0 ? name.left(dot) + suffix + name.mid(dot) : name + suffix;
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
