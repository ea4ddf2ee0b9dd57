#pragma once

#include "platform/AudioFileRecorder.h"
#include "platform/Clock.h"

#include <QDateTime>
#include <QObject>
#include <QString>

#include <memory>

namespace kest {

/// One recorded message: a file recorder, the folder and file it writes to, and
/// the two flags, the time and the level that the window shows.
///
/// One object records one file. Legal order: prepareToRecordToDirectory,
/// recordMessage, any number of pauseMessage and resumeMessage, stopRecording.
/// No operation checks the state it is called in: calls out of order go
/// straight through to the file recorder.
///
/// Where the factory makes no recorder, `recorder()` is null and every later
/// call to it does nothing; the flags and the time go on as if there were one,
/// and the level reads 0.0.
///
/// Main thread only. The factory and the clock must outlive it.
class AudioRecorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool recordingStopped READ recordingStopped WRITE setRecordingStopped)
    Q_PROPERTY(bool recordingPaused READ recordingPaused WRITE setRecordingPaused)
    Q_PROPERTY(QDateTime recordingStartResumeDate READ recordingStartResumeDate WRITE setRecordingStartResumeDate)
    Q_PROPERTY(double previousRecordingLength READ previousRecordingLength WRITE setPreviousRecordingLength)
    Q_PROPERTY(double currentRecordingLength READ currentRecordingLength WRITE setCurrentRecordingLength)

public:
    AudioRecorder(AudioFileRecorderFactory &factory, const Clock &clock, QObject *parent = nullptr);
    ~AudioRecorder() override;

    /// MPEG-4 AAC, quality "high", mono, 44100 Hz.
    static AudioRecorderSettings settings();

    /// Makes the file recorder for `fileName` in `directory` and lets it create
    /// the file. The folder stays under access until `stopRecording`.
    void prepareToRecordToDirectory(const FolderURL &directory, const QString &fileName);

    void recordMessage();
    void pauseMessage();
    void resumeMessage();

    /// Closes the file. `recorder()`, `recordingURL` and `dirURL` are kept, so
    /// that the file can still be found.
    void stopRecording();

    /// Minutes and seconds, "00:07"; the localized "--:--" when stopped or only
    /// prepared. Seconds are rounded and minutes are not, so the second before a
    /// full minute shows as "00:60". While paused it goes on counting.
    QString recordingTime();

    /// dBFS, not clamped; -160 when stopped. The average of two channels where
    /// the recorder reports a second one.
    double recordingLevel();

    /// True once prepared and not running, and after a stop.
    bool recordingStopped() const { return m_recordingStopped; }
    void setRecordingStopped(bool stopped) { m_recordingStopped = stopped; }

    bool recordingPaused() const { return m_recordingPaused; }
    void setRecordingPaused(bool paused) { m_recordingPaused = paused; }

    /// Null before `prepareToRecordToDirectory`, and where none could be made.
    AudioFileRecorder *recorder() const { return m_recorder.get(); }
    void setRecorder(std::unique_ptr<AudioFileRecorder> recorder);

    const FolderURL &dirURL() const { return m_dirURL; }
    void setDirURL(const FolderURL &url) { m_dirURL = url; }

    const FileURL &recordingURL() const { return m_recordingURL; }
    void setRecordingURL(const FileURL &url) { m_recordingURL = url; }

    /// The moment of the last start or resume, by the system's clock; invalid
    /// before the first. What has passed since is counted steadily: a clock that
    /// is set meanwhile changes no time.
    const QDateTime &recordingStartResumeDate() const { return m_recordingStartResumeDate; }
    void setRecordingStartResumeDate(const QDateTime &date);

    /// Seconds that were recorded at the last start or resume.
    double previousRecordingLength() const { return m_previousRecordingLength; }
    void setPreviousRecordingLength(double seconds) { m_previousRecordingLength = seconds; }

    /// Seconds, as `recordingTime` last computed them.
    double currentRecordingLength() const { return m_currentRecordingLength; }
    void setCurrentRecordingLength(double seconds) { m_currentRecordingLength = seconds; }

Q_SIGNALS:
    /// The file recorder's own words, passed on: also those that it says while
    /// it is being prepared.
    void troubleOccurred(kest::RecordingTrouble trouble, const QString &detail);
    void finished(bool kept);

private:
    double recordedLength() const;
    double secondsSinceStartOrResume() const;

    AudioFileRecorderFactory &m_factory;
    const Clock &m_clock;
    bool m_recordingStopped = false;
    bool m_recordingPaused = false;
    std::unique_ptr<AudioFileRecorder> m_recorder;
    FolderURL m_dirURL;
    FileURL m_recordingURL;
    QDateTime m_recordingStartResumeDate;
    std::chrono::milliseconds m_startResumeUptime{0}; // the same moment on the steady clock
    double m_previousRecordingLength = 0.0;
    double m_currentRecordingLength = 0.0;
};

} // namespace kest
