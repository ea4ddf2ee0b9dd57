#pragma once

#include "platform/linux/sound/boxes/Box.h"

#include <vector>

namespace kest {

/// The packets that one movie fragment announces.
struct Fragment {
    quint64 dataOffset = 0;           ///< Bytes from the beginning of the `moof` box to the first packet.
    std::vector<quint32> packetSizes; ///< Bytes each, in the order of their time; none is 0.
};

/// Reads the payload of a `moof` box as FragmentedWriter makes them: one run of
/// packets, counted from the box's own beginning. False for any other.
bool readFragment(Bytes movieFragment, quint32 defaultPacketSize, Fragment *fragment);

} // namespace kest
