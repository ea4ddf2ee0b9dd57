#pragma once

#include "platform/AudioFileRecorder.h"

#include <QHash>
#include <QPointer>
#include <QStringList>

#include <optional>

namespace kest::test {

class FakeAudioFileRecorderFactory;

/// A recorder without sound: does what it is told, notes its calls, and has
/// what a microphone or a disk cannot be made to do at will.
class FakeAudioFileRecorder : public AudioFileRecorder
{
    Q_OBJECT

public:
    FakeAudioFileRecorder(const FileURL &url, const AudioRecorderSettings &settings,
                          FakeAudioFileRecorderFactory &factory);
    ~FakeAudioFileRecorder() override;

    void setMeteringEnabled(bool enabled) override;
    bool prepareToRecord() override;
    bool record() override;
    void pause() override;
    void stop() override;
    double currentTime() const override { return m_currentTime; }
    void updateMeters() override;
    float averagePower(int channel) const override { return m_power.value(channel, -160.0F); }
    FileURL url() const override { return m_url; }
    bool isFinishing() const override { return m_finishing; }
    qint64 fileSize() const override { return m_fileSize; }

    void setCurrentTime(double seconds) { m_currentTime = seconds; }
    void setFileSize(qint64 bytes) { m_fileSize = bytes; }
    void setAveragePower(int channel, float decibels) { m_power.insert(channel, decibels); }
    const AudioRecorderSettings &settings() const { return m_settings; }

    /// Lets the file be finished now, as the recorder's own thread would.
    void finish(bool kept = true);

private:
    void note(const QString &call);
    void createFile() const;

    FileURL m_url;
    AudioRecorderSettings m_settings;
    FakeAudioFileRecorderFactory &m_factory;
    QHash<int, float> m_power;
    double m_currentTime = 0.0;
    qint64 m_fileSize = 0;
    bool m_finishing = false;
    bool m_finished = false;
};

/// Makes them, and remembers what every one of them was asked.
class FakeAudioFileRecorderFactory : public AudioFileRecorderFactory
{
public:
    std::unique_ptr<AudioFileRecorder> create(const FileURL &url, const AudioRecorderSettings &settings,
                                              Error *error) override;
    void warmUp() override { ++warmUps; }

    /// The newest recorder; null once it is destroyed.
    FakeAudioFileRecorder *last() const { return made.isEmpty() ? nullptr : made.last().data(); }

    QList<QPointer<FakeAudioFileRecorder>> made;
    QStringList calls;             ///< In order, of all recorders; "~" is a destruction.
    int warmUps = 0;
    bool refuses = false;          ///< No recorder is made.
    bool askedForError = false;    ///< An error slot was given.
    bool createsFiles = true;      ///< prepareToRecord writes a small file.
    std::optional<RecordingTrouble> troubleAtPrepare;

    /// Milliseconds from stop to `finished`; nothing: in the stop itself;
    /// negative: never by itself.
    std::optional<int> finishDelay;
};

} // namespace kest::test
