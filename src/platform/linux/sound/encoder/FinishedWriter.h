#pragma once

#include "platform/linux/sound/FileFailure.h"

#include <QtGlobal>

#include <optional>

namespace kest {

/// Copies the packets of a fragmented recording, whole or cut off anywhere, into
/// an ordinary progressive file: header in front, one table of packets, and an
/// edit list that makes it last exactly `sampleCount` samples (null: what the
/// packets hold). See EncoderPlugin::writeFinished.
std::optional<FileFailure> copyAsFinished(int from, int to, std::optional<qint64> sampleCount);

} // namespace kest
