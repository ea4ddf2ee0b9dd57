#include "platform/linux/sound/boxes/FinishedWriter.h"

#include "platform/linux/sound/boxes/FragmentIndex.h"
#include "platform/linux/sound/boxes/OutputFile.h"
#include "platform/linux/sound/boxes/ProgressiveHeader.h"

#include <algorithm>
#include <cerrno>
#include <numeric>

namespace kest {

namespace {

/// The first `bytes` of the media. Its pieces lie so close that reading all of
/// the file once is far faster than asking the kernel for each.
std::optional<FileFailure> copyMedia(FileWindow &from, OutputFile &to, const FragmentIndex &index, quint64 bytes)
{
    for (FragmentIndex::Run run : index.runs()) {
        run.length = std::min(run.length, bytes);
        bytes -= run.length;
        while (run.length > 0 && !to.error()) {
            const Bytes piece = from.at(run.position, size_t(std::min<quint64>(run.length, FileWindow::mostBytes)));
            if (from.error())
                return FileFailure::fromErrno(from.error());
            if (piece.empty())
                return unreadableRecording(); // somebody cut it short meanwhile
            to.append(piece);
            run.position += piece.size();
            run.length -= piece.size();
        }
    }
    to.flush();
    return to.error() ? std::optional(FileFailure::fromErrno(to.error())) : std::nullopt;
}

} // namespace

std::optional<FileFailure> copyAsFinished(int from, int to, std::optional<qint64> sampleCount)
{
    FileWindow recording(from);
    FileFailure failure;
    const auto index = FragmentIndex::read(recording, &failure);
    if (!index)
        return failure;
    const auto found = qint64(index->packetSizes().size());
    const qint64 samples = sampleCount.value_or(found * SoundTrack::packetSamples - SoundTrack::primingSamples);
    // Finishing on what is there would throw the rest of the recording away.
    if (samples <= 0 || packetsFor(samples) > found)
        return unreadableRecording();
    if (packetsFor(samples) > mostPackets)
        return FileFailure::fromErrno(EFBIG);
    const auto packets = std::span(index->packetSizes()).first(size_t(packetsFor(samples)));
    OutputFile output(to);
    const QByteArray header = progressiveHeader(index->track(), samples, packets);
    output.append({reinterpret_cast<const uchar *>(header.constData()), size_t(header.size())});
    return copyMedia(recording, output, *index, std::accumulate(packets.begin(), packets.end(), quint64(0)));
}

} // namespace kest
