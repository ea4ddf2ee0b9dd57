#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/linux/sound/DecoderLoader.h"

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <utility>

namespace kest {

/// Trouble, and the system's words on it.
using PlaybackFailure = std::pair<PlaybackTrouble, QString>;

/// Which content a file has, as far as it can be told without reading it.
struct FileVersion {
    dev_t device = 0;
    ino_t node = 0;
    off_t size = 0;
    qint64 changed = 0; ///< Nanoseconds of the last change of the content.

    friend bool operator==(const FileVersion &, const FileVersion &) = default;
};

/// A recording opened for reading. May wait for the disk: never on the main
/// thread or the PulseThread.
class SoundFile
{
public:
    /// Nothing, with `failure` set, when there is no readable recording.
    static std::unique_ptr<SoundFile> open(const FileURL &url, DecoderLoader &decoders, PlaybackFailure *failure);
    ~SoundFile();
    SoundFile(const SoundFile &) = delete;
    SoundFile &operator=(const SoundFile &) = delete;

    SoundReader &reader() { return *m_reader; }
    const FileVersion &version() const { return m_version; }
    double seconds() const { return double(m_reader->length()) / m_reader->sampleRate(); }

private:
    explicit SoundFile(int descriptor) : m_descriptor(descriptor) { }

    const int m_descriptor;
    FileVersion m_version;
    std::unique_ptr<SoundReader> m_reader;
};

} // namespace kest
