#include "platform/linux/mail/MailFileDescriptor.h"

#include <QCoreApplication>
#include <QDBusMetaType>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

QDBusArgument &operator<<(QDBusArgument &argument, const NamedDescriptor &file)
{
    argument.beginStructure();
    argument << file.name << file.descriptor;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NamedDescriptor &file)
{
    argument.beginStructure();
    argument >> file.name >> file.descriptor;
    argument.endStructure();
    return argument;
}

void registerNamedDescriptor()
{
    qDBusRegisterMetaType<NamedDescriptor>();
    qDBusRegisterMetaType<QList<NamedDescriptor>>();
}

std::optional<QDBusUnixFileDescriptor> openedForHandOver(const FileURL &file, Error *error)
{
    // Not blocking, because the name may be a pipe's by now; not following, because it may be a link's to a file that
    // nobody chose.
    const int descriptor =
        ::open(file.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
    struct stat status = {};
    int problem = descriptor < 0 || ::fstat(descriptor, &status) != 0 ? errno : 0;
    if (problem == 0 && !S_ISREG(status.st_mode))
        problem = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    std::optional<QDBusUnixFileDescriptor> opened;
    if (problem == 0)
        opened.emplace(descriptor);
    else
        handBack(error, posixError(problem, QCoreApplication::translate("kest", "The file “%1” cannot be attached")
                                                .arg(QString::fromUtf8(file.nativeLastPathComponent()))));
    if (descriptor >= 0)
        ::close(descriptor); // the wrapper holds a duplicate
    return opened;
}

} // namespace kest
