#pragma once

#include "platform/linux/sound/PlaybackBuffer.h"

#include <functional>
#include <memory>

namespace kest {

/// Fills a PlaybackBuffer with a file's sound from a second on, on a thread of
/// its own, until the end or until nobody reads any more.
struct PlaybackDecoder {
    FileURL file;
    double from = 0.0; ///< Seconds.
    std::shared_ptr<DecoderLoader> decoders;
    std::shared_ptr<PlaybackBuffer> buffer;

    /// Which file it turned out to be. Called on that thread.
    std::function<void(const FileVersion &version, double seconds)> opened;

    void run();
};

} // namespace kest
