#include "platform/Error.h"

#include <QtGlobal>

namespace kest {

Error posixError(int errorNumber, const QString &doing)
{
    const QString reason = qt_error_string(errorNumber);
    return {posixErrorDomain, errorNumber, QStringLiteral("%1: %2").arg(doing, reason), reason};
}

QString logText(const Error &error)
{
    return QStringLiteral("Error Domain=%1 Code=%2 \"%3\"")
        .arg(error.domain, QString::number(error.code), error.description);
}

} // namespace kest
