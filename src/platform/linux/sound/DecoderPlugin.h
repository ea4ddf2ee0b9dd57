#pragma once

#include "platform/linux/sound/FileFailure.h"

#include <QtGlobal>

#include <memory>
#include <optional>

namespace kest {

/// A sound file being decoded to mono samples, full scale -1 to 1.
///
/// Used by one thread at a time.
class SoundReader
{
public:
    virtual ~SoundReader() = default;

    /// Hz.
    virtual int sampleRate() const = 0;

    /// Samples in all, without what the encoder put before and behind.
    virtual qint64 length() const = 0;

    /// The next `read` begins with this sample.
    virtual std::optional<FileFailure> seek(qint64 sample) = 0;

    /// Decodes up to `count` samples and says how many; 0: the end; -1: it
    /// failed, with `failure` set. Damaged pieces are passed over as silence.
    virtual qsizetype read(float *samples, qsizetype count, FileFailure *failure) = 0;
};

/// The decoding half of the codec libraries; in a plugin as EncoderPlugin is,
/// and for the same reason.
class DecoderPlugin
{
public:
    virtual ~DecoderPlugin() = default;

    /// A reader of the file behind `file`, which stays the caller's. Null with
    /// `failure` set when it is no recording that can be decoded.
    virtual std::unique_ptr<SoundReader> openReader(int file, FileFailure *failure) = 0;
};

/// Name of the C function by which the plugin hands out its DecoderPlugin, which
/// lives as long as the process. The name carries the interface's generation.
inline constexpr char decoderPluginEntry[] = "kest_decoder_plugin_1";
using DecoderPluginEntry = DecoderPlugin *(*)();

} // namespace kest
