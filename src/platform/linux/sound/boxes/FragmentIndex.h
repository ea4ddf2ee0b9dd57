#pragma once

#include "platform/linux/sound/FileFailure.h"
#include "platform/linux/sound/boxes/FileWindow.h"
#include "platform/linux/sound/boxes/Fragment.h"
#include "platform/linux/sound/boxes/SoundTrack.h"

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace kest {

/// Where the packets of a fragmented recording lie in its file.
///
/// Believes nothing of what the file says of its own sizes: it may be cut off
/// anywhere, damaged in the middle or made up. A damaged piece is stepped over.
/// Memory and time grow with the bytes that are there, not with what they claim.
class FragmentIndex
{
public:
    /// Media bytes that lie together.
    struct Run {
        quint64 position = 0;
        quint64 length = 0;
    };

    /// Told of each piece of the media as it is found, with the bytes of its
    /// packets; the file's window is at it then. The track is known.
    using Found = std::function<void(const SoundTrack &track, const Run &run, std::span<const quint32> packetSizes)>;

    /// Reads the whole file. Null with `failure` when it cannot be read, or is
    /// no recording of ours; one without a whole packet has an empty index.
    static std::optional<FragmentIndex> read(FileWindow &file, FileFailure *failure, const Found &found = {});

    const SoundTrack &track() const { return m_track; }

    /// Bytes of each whole packet, in order.
    const std::vector<quint32> &packetSizes() const { return m_packetSizes; }

    /// All of the packets' bytes, in order.
    const std::vector<Run> &runs() const { return m_runs; }

private:
    explicit FragmentIndex(const Found &found) : m_found(found) { }

    void readBoxes(FileWindow &file);
    quint64 readBox(FileWindow &file, quint64 position);
    bool readHead(FileWindow &file, quint64 position, const BoxHeader &header);
    quint64 readFragmentAt(FileWindow &file, quint64 position, const BoxHeader &header);
    void addPackets(quint64 position, quint64 end);

    Found m_found;
    SoundTrack m_track;
    std::vector<quint32> m_packetSizes;
    std::vector<Run> m_runs;
    Fragment m_fragment; // the one just read; kept for its memory
};

/// What is told when a file is no recording, or holds too little.
FileFailure unreadableRecording();

} // namespace kest
