#pragma once

#include "platform/linux/sound/boxes/SoundTrack.h"

#include <QByteArray>

#include <span>

namespace kest {

/// Everything that stands in front of the media in a finished file: `ftyp` (brand
/// `M4A `), `moov` with one table of packets, and the head of `mdat`. The packets
/// follow at once, one behind the other.
///
/// The file lasts exactly `sampleCount` samples (at least 1): the edit list skips
/// the encoder's run-up, the last packet is as short as needed. `packetSizes`
/// are bytes, and as many as `packetsFor(sampleCount)`.
QByteArray progressiveHeader(const SoundTrack &track, qint64 sampleCount, std::span<const quint32> packetSizes);

/// How many packets hold the run-up and `sampleCount` samples.
qint64 packetsFor(qint64 sampleCount);

/// More packets than a header has room for (18 days); such a file stays fragmented.
inline constexpr qint64 mostPackets = 1 << 26;

} // namespace kest
