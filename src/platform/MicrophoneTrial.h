#pragma once

#include "platform/AudioFileRecorder.h"

#include <QObject>
#include <QString>

namespace kest {

/// Listens to the microphone for somebody who wants to see whether they are
/// heard. Only the level is told: no sample is kept, and no file is made.
///
/// `start` is for a person's own press of a button, never while a recording is
/// under way. No call blocks. Main thread.
class MicrophoneTrial : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The microphone that a recording would use now, its name for people; empty
    /// where there is none, or where the sound server has not answered yet.
    virtual QString microphone() const = 0;

    /// Opens the microphone. Does nothing while it listens.
    virtual void start() = 0;

    /// Closes the microphone. Nothing is told of this trial afterwards.
    virtual void stop() = 0;

    /// From `start` until `stop` or a trouble.
    virtual bool isListening() const = 0;

    /// RMS of the last 100 ms in dBFS, -160 (silence, or not listening) to 0.
    virtual float level() const = 0;

Q_SIGNALS:
    /// The microphone is closed: it could not be opened, or went away.
    void troubleOccurred(kest::RecordingTrouble trouble);
};

} // namespace kest
