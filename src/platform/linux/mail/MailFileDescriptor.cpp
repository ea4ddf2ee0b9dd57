#include "platform/linux/mail/MailFileDescriptor.h"

#include "platform/BoundedLookUps.h"
#include "platform/FileDescriptor.h"

#include <QCoreApplication>
#include <QDBusMetaType>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>

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

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 5s; // a file server that does not answer within that long is not there

using Opened = BoundedLookUps::Outcome<QDBusUnixFileDescriptor>;

Opened openRegularFile(const QByteArray &path)
{
    // Not blocking, because the name may be a pipe's by now; not following, because it may be a link's to a file that
    // nobody chose.
    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return {{}, errno};
    if (!S_ISREG(status.st_mode))
        return {{}, S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
    return {QDBusUnixFileDescriptor(file.get()), 0}; // with a duplicate of its own
}

} // namespace

std::optional<QDBusUnixFileDescriptor> openedForHandOver(const FileURL &file, Error *error)
{
    static BoundedLookUps lookUps(longestWait);
    const QByteArray path = file.nativePath();
    const Opened opened = lookUps.run(path, [path] { return openRegularFile(path); });
    if (opened.value)
        return opened.value;
    handBack(error, posixError(opened.errorNumber, QCoreApplication::translate("kest", "The file “%1” cannot be attached")
                                                       .arg(QString::fromUtf8(file.nativeLastPathComponent()))));
    return std::nullopt;
}

} // namespace kest
