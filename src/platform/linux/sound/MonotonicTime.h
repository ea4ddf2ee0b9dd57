#pragma once

#include <QtGlobal>

namespace kest {

/// Nanoseconds of the system's monotonic clock.
using MonotonicTime = qint64;

MonotonicTime monotonicNow();

} // namespace kest
