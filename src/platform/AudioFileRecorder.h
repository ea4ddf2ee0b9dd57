#pragma once

#include "platform/FileURL.h"

#include <QList>
#include <QObject>

#include <memory>

namespace kest {

/// What a recording is to be encoded as.
struct AudioRecorderSettings {
    quint32 formatID = 0;    ///< Four-character code, most significant byte first.
    int encoderQuality = 0;  ///< 0 (least) to 127 (best).
    int numberOfChannels = 0;
    float sampleRate = 0;    ///< Hz.
};

/// Why a recording ended, or never began, without its user asking for it.
enum class RecordingTrouble {
    NoSoundServer,    ///< No sound server answered.
    NoMicrophone,     ///< The sound server has no input device.
    MicrophoneLost,   ///< The input device went away while recording.
    SoundServerLost,  ///< The sound server went away while recording.
    NoSound,          ///< The server is there but delivers no data.
    DiskFull,         ///< The file system has no room left.
    CannotWrite,      ///< Any other failure to write or finish the file.
    EncoderMissing,   ///< The encoder could not be loaded.
};

/// What the recording sounds like at this moment.
enum class InputCondition {
    Unknown,  ///< It has just begun or gone on, is paused, or is over.
    Heard,    ///< Something is heard, or was a short while ago.
    Silent,   ///< Zeros for 1 s, or nothing above -60 dBFS for 3 s.
    Clipping, ///< Samples were cut off at full scale in the last 3 s.
};

/// Records the microphone into one file.
///
/// One object, one file. Legal order: prepareToRecord, record, any number of
/// pause and record, stop. Calls out of order do nothing. No call blocks: what
/// asks the sound server or the disk happens on the recorder's own threads.
/// Destroying a running recorder stops it; what was recorded is kept and
/// finished in the background.
///
/// While it records, the file under its final name is playable. `stop` closes
/// it; `finished` tells when it is an ordinary file that can be handed over.
///
/// Lives on the main thread; signals arrive there.
class AudioFileRecorder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void setMeteringEnabled(bool enabled) = 0;

    /// Creates the file and opens the input, so that `record` starts at once.
    /// True when the file could be created; the input may still turn out to be
    /// missing (see `troubleOccurred`).
    virtual bool prepareToRecord() = 0;

    /// Starts, or resumes after `pause`. True when recording was asked for.
    virtual bool record() = 0;

    /// Keeps every sample captured before the call and none after it.
    virtual void pause() = 0;

    /// Ends the recording; `finished` follows.
    virtual void stop() = 0;

    /// Seconds of audio recorded so far: captured samples / sample rate.
    virtual double currentTime() const = 0;

    /// Takes the meter reading that `averagePower` returns. Needs metering on.
    virtual void updateMeters() = 0;

    /// RMS of the last 100 ms in dBFS, -160 (silence, or no such channel) to 0.
    /// A full-scale sine reads -3.0. `channel` counts from 0.
    virtual float averagePower(int channel) const = 0;

    /// Where the recording lies.
    virtual FileURL url() const = 0;

    /// Bytes that the file has so far; 0 before the first sample. Stands still
    /// once it is being finished.
    virtual qint64 fileSize() const = 0;

    /// True from a `stop` (or a trouble that ends the recording) until the file
    /// is finished.
    virtual bool isFinishing() const = 0;

Q_SIGNALS:
    /// Once, when the first sample is in the recorder's hands.
    void captureStarted();

    /// The recording ended, or could not begin. What was captured is kept.
    /// `detail` names the device or quotes the system; may be empty.
    void troubleOccurred(kest::RecordingTrouble trouble, const QString &detail);

    /// Told at every change, within some tens of milliseconds; `microphone` is its
    /// name for people, empty when it is not known. `Unknown` at first.
    void inputConditionChanged(kest::InputCondition condition, const QString &microphone);

    /// Once per recording, when the file is closed for good. `kept` is false
    /// when nothing was captured and the empty file was taken away again.
    void finished(bool kept);
};

/// Makes recorders.
class AudioFileRecorderFactory
{
public:
    virtual ~AudioFileRecorderFactory() = default;

    /// A recorder that will write to `url`, or null when the settings cannot be
    /// served. `error` may be null.
    virtual std::unique_ptr<AudioFileRecorder> create(const FileURL &url, const AudioRecorderSettings &settings,
                                                      struct Error *error) = 0;

    /// Loads in the background what the first recording will need. For an idle
    /// moment after the first paint; without it, the first recording does it.
    virtual void preload() { }

    /// Somebody is about to record (the button is pressed down): opens the
    /// input now, so that a recorder made within the next seconds finds it
    /// running. Closes it again by itself. Never blocks.
    virtual void warmUp() { }

    /// Finishes the recordings that a crash or a power cut left unfinished.
    /// They are looked for where they were, near there, and in `folders`.
    /// Returns their number when all are done or `milliseconds` are over; what
    /// is left goes on in the background.
    virtual int finishInterruptedRecordings(const QList<FolderURL> &folders, int milliseconds)
    {
        Q_UNUSED(folders)
        Q_UNUSED(milliseconds)
        return 0;
    }

    /// For the end of the program: waits until every file is finished, also
    /// those of destroyed recorders. False when `milliseconds` were not enough;
    /// such a file is playable and is finished at the next start.
    virtual bool waitForFinished(int milliseconds)
    {
        Q_UNUSED(milliseconds)
        return true;
    }
};

} // namespace kest

Q_DECLARE_METATYPE(kest::RecordingTrouble)
Q_DECLARE_METATYPE(kest::InputCondition)
