#include "platform/linux/sound/boxes/PacketTables.h"

#include <numeric>

namespace kest {

namespace {

constexpr quint32 packetsPerChunk = 43; // about a second: what a player reads at once to begin anywhere

} // namespace

PacketTables::PacketTables(const SoundTrack &track, quint64 mediaSamples, std::span<const quint32> packetSizes)
    : m_track(track), m_mediaSamples(mediaSamples), m_sizes(packetSizes),
      m_mediaBytes(std::accumulate(packetSizes.begin(), packetSizes.end(), quint64(0))),
      m_wholeChunks(quint32(packetSizes.size() / packetsPerChunk)),
      m_packetsInLastChunk(quint32(packetSizes.size() % packetsPerChunk))
{
}

void PacketTables::write(BoxWriter *out, bool wideOffsets)
{
    m_wideOffsets = wideOffsets;
    out->box("stbl", [&] {
        writeDescription(out);
        writeDurations(out);
        writeChunks(out);
        writeSizes(out);
        writeOffsets(out);
        writeRollGroup(out);
    });
}

void PacketTables::writeDescription(BoxWriter *out) const
{
    out->fullBox("stsd", 0, 0, [&] {
        out->put(quint32(1));
        out->box("mp4a", [&] {
            out->putZeros(6);
            out->put(quint16(1)); // the only data reference
            out->putZeros(8);
            out->put(quint16(1));  // channels
            out->put(quint16(16)); // bits a sample
            out->putZeros(4);
            out->put(m_track.sampleRate << 16);
            out->put(m_track.decoderConfig);
        });
    });
}

void PacketTables::writeDurations(BoxWriter *out) const
{
    const auto packets = quint32(m_sizes.size());
    const auto last = quint32(m_mediaSamples - quint64(packets - 1) * SoundTrack::packetSamples);
    const bool lastIsWhole = last == SoundTrack::packetSamples;
    out->fullBox("stts", 0, 0, [&] {
        out->put(quint32(lastIsWhole ? 1 : 2));
        out->put(lastIsWhole ? packets : packets - 1);
        out->put(quint32(SoundTrack::packetSamples));
        if (!lastIsWhole) {
            out->put(quint32(1));
            out->put(last);
        }
    });
}

void PacketTables::writeChunks(BoxWriter *out) const
{
    const auto beginningWith = [&](quint32 chunk, quint32 packetsEach) {
        out->put(chunk); // counted from 1
        out->put(packetsEach);
        out->put(quint32(1)); // the only description
    };
    out->fullBox("stsc", 0, 0, [&] {
        out->put(quint32((m_wholeChunks > 0) + (m_packetsInLastChunk > 0)));
        if (m_wholeChunks > 0)
            beginningWith(1, packetsPerChunk);
        if (m_packetsInLastChunk > 0)
            beginningWith(m_wholeChunks + 1, m_packetsInLastChunk);
    });
}

void PacketTables::writeSizes(BoxWriter *out) const
{
    out->fullBox("stsz", 0, 0, [&] {
        out->put(quint32(0)); // each has its own
        out->put(quint32(m_sizes.size()));
        out->put(m_sizes);
    });
}

void PacketTables::writeOffsets(BoxWriter *out)
{
    const quint32 chunks = m_wholeChunks + (m_packetsInLastChunk > 0);
    const auto room = [&] {
        out->put(chunks);
        m_offsetsAt = out->bytes().size();
        out->putZeros(qsizetype(chunks) * (m_wideOffsets ? 8 : 4));
    };
    if (m_wideOffsets)
        out->fullBox("co64", 0, 0, room);
    else
        out->fullBox("stco", 0, 0, room);
}

void PacketTables::setMediaPosition(BoxWriter *out, quint64 position) const
{
    qsizetype at = m_offsetsAt;
    for (size_t packet = 0; packet < m_sizes.size(); ++packet) {
        if (packet % packetsPerChunk == 0) {
            if (m_wideOffsets)
                out->putAt(at, position);
            else
                out->putAt(at, quint32(position));
            at += m_wideOffsets ? 8 : 4;
        }
        position += m_sizes[packet];
    }
}

/// Whoever begins to play in the middle decodes one packet before it
/// (ISO/IEC 14496-12, 10.1: AudioRollRecoveryEntry).
void PacketTables::writeRollGroup(BoxWriter *out) const
{
    out->fullBox("sgpd", 1, 0, [&] {
        out->put(QByteArray("roll"));
        out->put(quint32(2)); // bytes an entry
        out->put(quint32(1));
        out->put(quint16(-1));
    });
    out->fullBox("sbgp", 0, 0, [&] {
        out->put(QByteArray("roll"));
        out->put(quint32(1));
        out->put(quint32(m_sizes.size()));
        out->put(quint32(1)); // all of them belong to the entry above
    });
}

} // namespace kest
