#pragma once

#include "platform/FileURL.h"

#include <QList>
#include <QObject>

namespace kest {

/// Why a recording is not played, or no longer.
enum class PlaybackTrouble {
    FileMissing,     ///< There is no such file any more.
    Unreadable,      ///< The file cannot be read, or is no recording.
    DecoderMissing,  ///< The decoder could not be loaded.
    NoSoundServer,   ///< No sound server answered.
    NoOutput,        ///< The sound server has nothing to play on.
    OutputLost,      ///< What it was played on went away.
    SoundServerLost, ///< The sound server went away while playing.
    NoProgress,      ///< The sound server is there, but takes no sound.
};

/// Plays one sound file at a time, as often as is wanted, and shows its shape.
///
/// No call blocks, whatever state file and sound server are in. Every `play`
/// opens the file anew, so what is heard is what lies there then. After a
/// trouble the position stays, and another `play` tries again.
///
/// Lives on the main thread; signals arrive there.
class AudioFilePlayer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Takes this file in place of the one before, which stops, and begins to
    /// read it: `opened`, then `waveformRead` follow, or `troubleOccurred`.
    virtual void open(const FileURL &file) = 0;

    /// Stops, and forgets the file.
    virtual void close() = 0;

    /// Plays from the position on, from the start where that is the end. Does
    /// nothing without a file, or while it plays.
    virtual void play() = 0;

    /// Stops where it is.
    virtual void pause() = 0;

    /// Moves the position; what plays goes on from there. Kept within the file.
    virtual void seek(double seconds) = 0;

    /// True from `play` until `pause`, the end or a trouble.
    virtual bool isPlaying() const = 0;

    /// Seconds from the start: what is heard now.
    virtual double position() const = 0;

    /// Seconds; 0 while it is not known.
    virtual double length() const = 0;

    /// How many peaks a waveform has at most.
    static constexpr int mostPeaks = 512;

Q_SIGNALS:
    /// The length is known. Again when the file turned out to be another one.
    void opened(double length);

    /// The loudest of each of so many equal parts of the file, full scale 1.
    /// Of a very long file each part is sampled, not read whole.
    void waveformRead(const QList<float> &peaks);

    void playingChanged(bool playing);

    /// `detail` quotes the system; may be empty.
    void troubleOccurred(kest::PlaybackTrouble trouble, const QString &detail);
};

} // namespace kest

Q_DECLARE_METATYPE(kest::PlaybackTrouble)
