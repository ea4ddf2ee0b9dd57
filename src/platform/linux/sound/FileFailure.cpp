#include "platform/linux/sound/FileFailure.h"

#include <QByteArray>

#include <cstring>

namespace kest {

FileFailure FileFailure::fromErrno(int errorNumber)
{
    return {errorNumber, QString::fromLocal8Bit(std::strerror(errorNumber))};
}

} // namespace kest
