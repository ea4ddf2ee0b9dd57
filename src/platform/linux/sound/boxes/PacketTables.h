#pragma once

#include "platform/linux/sound/boxes/BoxWriter.h"
#include "platform/linux/sound/boxes/SoundTrack.h"

#include <span>

namespace kest {

/// The sample table of a finished file (ISO/IEC 14496-12, 8.5.1): what each
/// packet is, how long it lasts, how many bytes it has and where it lies.
class PacketTables
{
public:
    /// `mediaSamples` counts the run-up too; `packetSizes` are bytes, and outlive this.
    PacketTables(const SoundTrack &track, quint64 mediaSamples, std::span<const quint32> packetSizes);

    quint64 mediaBytes() const { return m_mediaBytes; }

    /// The whole `stbl` box. Where the media lies is left open, with room for
    /// 64 bits each when `wideOffsets`, else for 32.
    void write(BoxWriter *out, bool wideOffsets);

    /// Fills in what `write` left open: the first packet is at this byte of the file.
    void setMediaPosition(BoxWriter *out, quint64 position) const;

private:
    void writeDescription(BoxWriter *out) const;
    void writeDurations(BoxWriter *out) const;
    void writeChunks(BoxWriter *out) const;
    void writeOffsets(BoxWriter *out);
    void writeSizes(BoxWriter *out) const;
    void writeRollGroup(BoxWriter *out) const;

    const SoundTrack &m_track;
    const quint64 m_mediaSamples;
    const std::span<const quint32> m_sizes;
    const quint64 m_mediaBytes;
    const quint32 m_wholeChunks;
    const quint32 m_packetsInLastChunk; // 0: the last one is whole too
    bool m_wideOffsets = false;
    qsizetype m_offsetsAt = 0; // where in the writer's bytes
};

} // namespace kest
