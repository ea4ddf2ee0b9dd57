#pragma once

#include <QLoggingCategory>

namespace kest {

/// What becomes of recordings, in the log.
Q_DECLARE_LOGGING_CATEGORY(logRecording)

} // namespace kest
