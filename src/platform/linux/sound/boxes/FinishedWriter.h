#pragma once

#include "platform/linux/sound/FileFailure.h"

#include <QtGlobal>

#include <optional>

namespace kest {

/// Makes an ordinary progressive file out of a fragmented recording: reads the
/// one behind `from`, which may be cut off anywhere, and writes all of the empty
/// one behind `to`. It lasts exactly `sampleCount` samples, or, when that is not
/// known, what its packets hold.
///
/// A recording that cannot be read, or holds less than `sampleCount`, is a
/// failure. Both descriptors stay the caller's; nothing is synced.
std::optional<FileFailure> copyAsFinished(int from, int to, std::optional<qint64> sampleCount);

} // namespace kest
