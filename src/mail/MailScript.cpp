#include "mail/ASMail.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

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

bool onlyOwnerCanChange(const QByteArray &path, mode_t type)
{
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0 || (status.st_mode & S_IFMT) != type)
        return false;
    const bool ours = status.st_uid == ::geteuid() || status.st_uid == 0;
    return ours && !(status.st_mode & (S_IWGRP | S_IWOTH));
}

} // namespace

QString mailScriptPath(const QString &dataHome)
{
    registerResources();
    const QString folder = dataHome + QStringLiteral("/kest");
    const QString own = folder + QStringLiteral("/ASMail.mjs");
    if (!QFileInfo::exists(own))
        return QStringLiteral(":/ASMail.mjs");
    // A script may do whatever Kest may, so nobody else may put one there.
    if (onlyOwnerCanChange(QFile::encodeName(folder), S_IFDIR) && onlyOwnerCanChange(QFile::encodeName(own), S_IFREG))
        return own;
    qCWarning(mailScript) << "Not used, because others could change it:" << own;
    return QStringLiteral(":/ASMail.mjs");
}

} // namespace kest
