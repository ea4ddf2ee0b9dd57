#include "platform/linux/sound/boxes/FinishedWriter.h"

#include "platform/linux/sound/boxes/FragmentIndex.h"
#include "platform/linux/sound/boxes/OutputFile.h"
#include "platform/linux/sound/boxes/ProgressiveHeader.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <numeric>

namespace kest {

namespace {

/// Puts pieces of a recording's media one behind the other. Its pieces lie so close that reading all of the file once is
/// far faster than asking the kernel for each.
class MediaCopy
{
public:
    MediaCopy(FileWindow &from, int to, quint64 position) : m_from(from), m_to(to, position) { }

    /// The first `most` bytes of the run.
    void append(FragmentIndex::Run run, quint64 most)
    {
        run.length = std::min(run.length, most);
        while (run.length > 0 && !m_to.error() && !m_cutShort) {
            const Bytes piece = m_from.at(run.position, size_t(std::min<quint64>(run.length, FileWindow::mostBytes)));
            m_cutShort = piece.empty(); // somebody cut the recording short meanwhile
            m_to.append(piece);
            run.position += piece.size();
            run.length -= piece.size();
        }
    }

    std::optional<FileFailure> finish()
    {
        m_to.flush();
        if (m_from.error() || m_to.error())
            return FileFailure::fromErrno(m_from.error() ? m_from.error() : m_to.error());
        return m_cutShort ? std::optional(unreadableRecording()) : std::nullopt;
    }

private:
    FileWindow &m_from;
    OutputFile m_to;
    bool m_cutShort = false;
};

/// Copies while the recording is read for the first time. Where the media begins is known from how many packets there
/// will be; the header is written there last.
class EarlyCopy
{
public:
    EarlyCopy(FileWindow &from, int to, qint64 samples)
        : m_from(from), m_to(to), m_samples(samples), m_packetsLeft(size_t(packetsFor(samples)))
    {
    }

    void take(const SoundTrack &track, const FragmentIndex::Run &run, std::span<const quint32> sizes)
    {
        if (!m_copy)
            begin(track);
        const auto wanted = sizes.first(std::min(sizes.size(), m_packetsLeft));
        m_packetsLeft -= wanted.size();
        m_copy->append(run, std::accumulate(wanted.begin(), wanted.end(), quint64(0)));
    }

    std::optional<FileFailure> finish() { return m_copy ? m_copy->finish() : std::nullopt; }

    /// Whether the media lies where this header's media does: those of many gigabytes are longer.
    bool fits(const QByteArray &header) const { return m_copy && quint64(header.size()) == m_headerBytes; }

private:
    void begin(const SoundTrack &track)
    {
        const std::vector<quint32> anySizes(m_packetsLeft, 1);
        m_headerBytes = quint64(progressiveHeader(track, m_samples, anySizes).size());
        m_copy = std::make_unique<MediaCopy>(m_from, m_to, m_headerBytes);
    }

    FileWindow &m_from;
    const int m_to;
    const qint64 m_samples;
    size_t m_packetsLeft;
    quint64 m_headerBytes = 0;
    std::unique_ptr<MediaCopy> m_copy;
};

std::optional<FileFailure> copyMedia(FileWindow &from, int to, const FragmentIndex &index, quint64 position,
                                     quint64 bytes)
{
    MediaCopy copy(from, to, position);
    for (const FragmentIndex::Run &run : index.runs()) {
        copy.append(run, bytes);
        bytes -= std::min(run.length, bytes);
    }
    return copy.finish();
}

std::optional<FileFailure> writeHeader(int to, const QByteArray &header)
{
    OutputFile output(to);
    output.append({reinterpret_cast<const uchar *>(header.constData()), size_t(header.size())});
    output.flush();
    return output.error() ? std::optional(FileFailure::fromErrno(output.error())) : std::nullopt;
}

} // namespace

std::optional<FileFailure> copyAsFinished(int from, int to, std::optional<qint64> sampleCount)
{
    FileWindow recording(from);
    std::optional<EarlyCopy> early;
    FragmentIndex::Found found;
    // A packet has a byte at least: more of them than bytes are not there, whatever the caller says.
    if (sampleCount && *sampleCount > 0 && quint64(packetsFor(*sampleCount)) <= recording.size()) {
        early.emplace(recording, to, *sampleCount);
        found = [&early](const auto &...piece) { early->take(piece...); };
    }
    FileFailure failure;
    const auto index = FragmentIndex::read(recording, &failure, found);
    if (!index)
        return failure;
    const auto held = qint64(index->packetSizes().size());
    const qint64 samples = sampleCount.value_or(held * SoundTrack::packetSamples - SoundTrack::primingSamples);
    // Finishing on what is there would throw the rest of the recording away.
    if (samples <= 0 || packetsFor(samples) > held)
        return unreadableRecording();
    if (packetsFor(samples) > mostPackets)
        return FileFailure::fromErrno(EFBIG);
    const auto packets = std::span(index->packetSizes()).first(size_t(packetsFor(samples)));
    const QByteArray header = progressiveHeader(index->track(), samples, packets);
    const auto failed = early && early->fits(header)
        ? early->finish()
        : copyMedia(recording, to, *index, quint64(header.size()),
                    std::accumulate(packets.begin(), packets.end(), quint64(0)));
    return failed ? failed : writeHeader(to, header);
}

} // namespace kest
