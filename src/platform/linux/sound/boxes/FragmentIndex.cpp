#include "platform/linux/sound/boxes/FragmentIndex.h"

#include <algorithm>
#include <numeric>

namespace kest {

namespace {

constexpr quint64 largestHead = 64 * 1024;    // ours has 717 bytes
constexpr quint64 largestFragmentBox = 1024;  // ours have 116 bytes or so

/// Where the next `moof` box may begin, at `position` or behind it; the end of
/// the file when there is none.
quint64 findFragment(FileWindow &file, quint64 position)
{
    constexpr uchar type[] = {'m', 'o', 'o', 'f'};
    constexpr size_t sizeField = 4;
    constexpr size_t searchedAtOnce = 4096; // small, so that trying again behind a find is cheap
    for (;;) {
        const Bytes bytes = file.at(position, searchedAtOnce);
        if (bytes.size() < BoxHeader::longest)
            return file.size();
        const auto found = std::search(bytes.begin() + sizeField, bytes.end(), std::begin(type), std::end(type));
        if (found != bytes.end())
            return position + quint64(found - bytes.begin()) - sizeField;
        position += bytes.size() - sizeField - std::size(type) + 1;
    }
}

} // namespace

FileFailure unreadableRecording()
{
    return {0, QStringLiteral("The file is not a whole recording.")};
}

std::optional<FragmentIndex> FragmentIndex::read(FileWindow &file, FileFailure *failure, const Found &found)
{
    FragmentIndex index(found);
    index.readBoxes(file);
    index.m_found = {};
    if (file.error()) {
        *failure = FileFailure::fromErrno(file.error());
        return std::nullopt;
    }
    if (index.m_track.sampleRate == 0) {
        *failure = unreadableRecording();
        return std::nullopt;
    }
    return index;
}

void FragmentIndex::readBoxes(FileWindow &file)
{
    quint64 position = 0;
    while (position < file.size() && !file.error()) {
        const quint64 length = readBox(file, position);
        position = length ? position + length : findFragment(file, position + 1);
    }
}

/// How many bytes it takes; 0 when it is damaged, or what does not stand by
/// itself in a recording: its length is not to be believed then.
quint64 FragmentIndex::readBox(FileWindow &file, quint64 position)
{
    const quint64 left = file.size() - position;
    const auto header = readBoxHeader(file.at(position, BoxHeader::longest), left);
    if (!header || header->size > left)
        return 0;
    switch (header->type) {
    case boxType("ftyp"):
        return header->size;
    case boxType("moov"):
        return readHead(file, position, *header) ? header->size : 0;
    case boxType("moof"):
        return readFragmentAt(file, position, *header);
    default:
        return 0;
    }
}

bool FragmentIndex::readHead(FileWindow &file, quint64 position, const BoxHeader &header)
{
    if (header.size > largestHead || m_track.sampleRate != 0)
        return false;
    const Bytes box = file.at(position, size_t(header.size));
    const auto track = box.size() == header.size ? readSoundTrack(box.subspan(header.length)) : std::nullopt;
    if (track)
        m_track = *track;
    return track.has_value();
}

/// A fragment is two boxes, which tell the same: the packets' sizes add up to
/// the length of the media behind them. Where they do not, one is damaged.
quint64 FragmentIndex::readFragmentAt(FileWindow &file, quint64 position, const BoxHeader &header)
{
    if (header.size > largestFragmentBox || m_track.sampleRate == 0)
        return 0;
    const Bytes bytes = file.at(position, size_t(header.size) + BoxHeader::longest);
    if (bytes.size() < header.size
        || !readFragment(bytes.first(header.size).subspan(header.length), m_track.defaultPacketSize, &m_fragment))
        return 0;
    const quint64 left = file.size() - position - header.size;
    const auto media = readBoxHeader(bytes.subspan(header.size), left);
    const auto &sizes = m_fragment.packetSizes;
    const quint64 announced = std::accumulate(sizes.begin(), sizes.end(), quint64(0));
    if (!media || media->type != boxType("mdat") || m_fragment.dataOffset != header.size + media->length
        || media->size - media->length != announced)
        return 0;
    addPackets(position + m_fragment.dataOffset, file.size());
    return header.size + std::min(media->size, left);
}

void FragmentIndex::addPackets(quint64 position, quint64 end)
{
    Run run = {position, 0};
    const size_t before = m_packetSizes.size();
    for (const quint32 size : m_fragment.packetSizes) {
        if (size > end - position - run.length)
            break;
        run.length += size;
        m_packetSizes.push_back(size);
    }
    if (run.length == 0)
        return;
    m_runs.push_back(run);
    if (m_found)
        m_found(m_track, run, std::span(m_packetSizes).subspan(before));
}

} // namespace kest
