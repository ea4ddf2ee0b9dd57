#include "mail/MailScript.h"

#include <QFile>
#include <QLoggingCategory>

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

// Outside the namespace, as the macro needs: a static library's resources register only when asked to.
static void registerResources()
{
    Q_INIT_RESOURCE(mail);
}

namespace kest {

Q_DECLARE_LOGGING_CATEGORY(mailScript)

namespace {

constexpr size_t largestScript = 1024 * 1024;

bool onlyOwnerCanChange(int descriptor, mode_t type)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || (status.st_mode & S_IFMT) != type)
        return false;
    const bool ours = status.st_uid == ::geteuid() || status.st_uid == 0;
    return ours && !(status.st_mode & (S_IWGRP | S_IWOTH));
}

std::optional<QByteArray> readScript(int descriptor)
{
    QByteArray text(largestScript + 1, Qt::Uninitialized);
    size_t length = 0;
    while (length <= largestScript) {
        const ssize_t count = ::read(descriptor, text.data() + length, largestScript + 1 - length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0) {
            text.truncate(qsizetype(length));
            return text;
        }
        length += size_t(count);
    }
    return std::nullopt;
}

/// The text of a script that nobody but its owner can have written.
std::optional<QByteArray> ownScript(int folder, int file)
{
    if (!onlyOwnerCanChange(folder, S_IFDIR) || !onlyOwnerCanChange(file, S_IFREG))
        return std::nullopt;
    return readScript(file);
}

} // namespace

MailScript findMailScript(const QString &dataHome)
{
    registerResources();
    const MailScript builtIn{QStringLiteral(":/ASMail.mjs")};
    const QString folderPath = dataHome + QStringLiteral("/kest");
    const QString path = folderPath + QStringLiteral("/ASMail.mjs");
    const int folder = ::open(QFile::encodeName(folderPath).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    // Not blocking, because the name may be a pipe's.
    const int file = folder < 0 ? -1 : ::openat(folder, "ASMail.mjs", O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    const bool isThere = file >= 0 || errno != ENOENT;
    // A script may do whatever Kest may, so nobody else may put one there.
    const auto text = file < 0 ? std::nullopt : ownScript(folder, file);
    if (file >= 0)
        ::close(file);
    if (folder >= 0)
        ::close(folder);
    if (text)
        return {path, text};
    if (isThere)
        qCWarning(mailScript) << "Not used, because others could change it, or it is no script:" << path;
    return builtIn;
}

} // namespace kest
