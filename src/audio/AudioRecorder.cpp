#include "audio/AudioRecorder.h"

#include <QCoreApplication>

#include <cmath>

namespace kest {

namespace {

constexpr double silence = -160.0; // dBFS

} // namespace

AudioRecorder::AudioRecorder(AudioFileRecorderFactory &factory, const Clock &clock, QObject *parent)
    : QObject(parent)
    , m_factory(factory)
    , m_clock(clock)
{
}

AudioRecorder::~AudioRecorder() = default;

AudioRecorderSettings AudioRecorder::settings()
{
    return {.formatID = 0x61616320, // "aac "
            .encoderQuality = 64,
            .numberOfChannels = 1,
            .sampleRate = 44100.0F};
}

void AudioRecorder::setRecorder(std::unique_ptr<AudioFileRecorder> recorder)
{
    m_recorder = std::move(recorder);
    if (!m_recorder)
        return;
    connect(m_recorder.get(), &AudioFileRecorder::troubleOccurred, this, &AudioRecorder::troubleOccurred);
    connect(m_recorder.get(), &AudioFileRecorder::finished, this, &AudioRecorder::finished);
}

void AudioRecorder::prepareToRecordToDirectory(const FolderURL &directory, const QString &fileName)
{
    directory.startAccessingSecurityScopedResource();
    m_recordingURL = directory.appendingPathComponent(fileName);
    // Nobody asks why it failed: a missing recorder is silent here by design.
    setRecorder(m_factory.create(m_recordingURL, settings(), nullptr));
    if (m_recorder) {
        m_recorder->setMeteringEnabled(true);
        m_recorder->prepareToRecord();
    }
    m_recordingStopped = true;
    m_recordingPaused = false;
    m_dirURL = directory;
}

void AudioRecorder::recordMessage()
{
    setRecordingStartResumeDate(m_clock.now());
    m_previousRecordingLength = recordedLength();
    if (m_recorder)
        m_recorder->record();
    m_recordingStopped = false;
    m_recordingPaused = false;
}

void AudioRecorder::pauseMessage()
{
    if (m_recorder)
        m_recorder->pause();
    m_recordingPaused = true;
}

void AudioRecorder::resumeMessage()
{
    // Length first, then date: deliberately the reverse of recordMessage.
    m_previousRecordingLength = recordedLength();
    setRecordingStartResumeDate(m_clock.now());
    if (m_recorder)
        m_recorder->record();
    m_recordingPaused = false;
}

void AudioRecorder::stopRecording()
{
    if (m_recorder)
        m_recorder->stop();
    m_dirURL.stopAccessingSecurityScopedResource();
    m_recordingStopped = true;
    m_recordingPaused = false;
}

QString AudioRecorder::recordingTime()
{
    if (m_recordingStopped)
        return QCoreApplication::translate("kest", "--:--");
    m_currentRecordingLength = m_previousRecordingLength + secondsSinceStartOrResume();
    const float minutes = static_cast<float>(std::floor(m_currentRecordingLength / 60.0));
    // The product is rounded to single precision before it is added.
    const float product = -60.0F * minutes;
    const float seconds = static_cast<float>(std::round(m_currentRecordingLength + static_cast<double>(product)));
    return QString::asprintf("%02d:%02d", static_cast<qint32>(minutes), static_cast<qint32>(seconds));
}

double AudioRecorder::recordingLevel()
{
    if (m_recordingStopped)
        return silence;
    if (!m_recorder)
        return 0.0;
    m_recorder->updateMeters();
    const double left = static_cast<double>(m_recorder->averagePower(0));
    const float right = m_recorder->averagePower(1);
    if (static_cast<double>(right) > silence)
        return (left + static_cast<double>(right)) * 0.5;
    return left;
}

void AudioRecorder::setRecordingStartResumeDate(const QDateTime &date)
{
    m_recordingStartResumeDate = date;
    const qint64 age = date.isValid() ? date.msecsTo(m_clock.now()) : 0;
    m_startResumeUptime = m_clock.uptime() - std::chrono::milliseconds(age);
}

/// 0 where there was neither.
double AudioRecorder::secondsSinceStartOrResume() const
{
    if (!m_recordingStartResumeDate.isValid())
        return 0.0;
    return std::chrono::duration<double>(m_clock.uptime() - m_startResumeUptime).count();
}

double AudioRecorder::recordedLength() const
{
    return m_recorder ? m_recorder->currentTime() : 0.0;
}

} // namespace kest
