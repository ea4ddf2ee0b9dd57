#pragma once

#include "platform/linux/sound/FileFailure.h"

#include <QtGlobal>

#include <memory>
#include <optional>

namespace kest {

/// What a recording is encoded as.
struct EncoderFormat {
    int sampleRate = 44100; ///< Hz.
    int bitRate = 66000;    ///< Bits a second, on average; docs/decisions/0005-speech-bit-rate.md.
};

/// Encodes one recording into a file that is playable all the while.
///
/// Used by one thread at a time.
class RecordingWriter
{
public:
    virtual ~RecordingWriter() = default;

    /// Encodes `count` mono samples (full scale is -1 to 1). What is complete is
    /// in the file when this returns. After a failure the file ends with its
    /// last whole fragment, and nothing more can be written.
    virtual std::optional<FileFailure> write(const float *samples, qsizetype count) = 0;

    /// Encodes what is left. Nothing can be written afterwards.
    virtual std::optional<FileFailure> close() = 0;
};

/// The door to the codec libraries. They are big, so they live in a plugin that
/// is loaded when the first recording is prepared, not when the program starts.
class EncoderPlugin
{
public:
    virtual ~EncoderPlugin() = default;

    /// A writer into the empty file behind `file`, which stays the caller's.
    /// Null with `failure` set when the encoder cannot be had.
    virtual std::unique_ptr<RecordingWriter> createWriter(int file, const EncoderFormat &format,
                                                          FileFailure *failure) = 0;
};

/// Name of the C function by which the plugin hands out its EncoderPlugin, which
/// lives as long as the process. The name carries the interface's generation.
inline constexpr char encoderPluginEntry[] = "kest_encoder_plugin_2";
using EncoderPluginEntry = EncoderPlugin *(*)();

} // namespace kest
