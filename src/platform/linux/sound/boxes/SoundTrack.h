#pragma once

#include "platform/linux/sound/boxes/Box.h"

#include <QByteArray>

namespace kest {

/// What the head of a fragmented recording says of its one track.
struct SoundTrack {
    quint32 sampleRate = 0;        ///< Hz, which its times count in.
    quint32 defaultPacketSize = 0; ///< Bytes; 0: every fragment tells its own.
    QByteArray decoderConfig;      ///< The whole `esds` box (ISO/IEC 14496-14, 5.6).

    /// Samples in a packet of AAC-LC (ISO/IEC 14496-3).
    static constexpr qint64 packetSamples = 1024;

    /// Samples that the encoder puts in front of what was recorded.
    static constexpr qint64 primingSamples = 1024;
};

/// Reads the payload of a `moov` box. Null unless it has exactly one track, of
/// mono AAC-LC with 1024 samples a packet: nothing else is a recording of ours.
std::optional<SoundTrack> readSoundTrack(Bytes movie);

} // namespace kest
