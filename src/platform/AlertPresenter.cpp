#include "platform/AlertPresenter.h"

#include <QCoreApplication>

namespace kest {

AlertContent AlertContent::fromError(const Error &error)
{
    // The reason says nothing new where it only repeats the description.
    const QString reason = error.failureReason == error.description ? QString() : error.failureReason;
    return {error.description, reason, {QCoreApplication::translate("kest", "OK")}, Style::Warning};
}

} // namespace kest
