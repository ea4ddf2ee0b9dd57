#pragma once

#include <QLoggingCategory>

namespace kest {

/// What the host says about itself; never what people wrote.
Q_DECLARE_LOGGING_CATEGORY(hostLog)

} // namespace kest
