#include "platform/linux/sound/PulseRecorder.h"

#include "platform/linux/sound/RecordingFile.h"
#include "platform/linux/sound/RecordingJob.h"

#include <system_error>
#include <utility>

namespace kest {

PulseRecorder::PulseRecorder(FileURL url, const EncoderFormat &format, Parts parts)
    : m_url(std::move(url)), m_format(format), m_parts(std::move(parts))
{
}

PulseRecorder::~PulseRecorder()
{
    stop();
    m_mailbox->close();
}

bool PulseRecorder::prepareToRecord()
{
    if (m_state != State::New)
        return false;
    FileFailure failure;
    std::unique_ptr<RecordingJournal::Entry> entry;
    const auto announce = [&](const FileURL &url) {
        if (entry)
            entry->done();
        entry = m_parts.journal->announce(url);
    };
    auto file = RecordingFile::create(m_url, &failure, announce);
    if (!file) {
        if (entry)
            entry->done();
        const auto trouble = failure.isDiskFull() ? RecordingTrouble::DiskFull : RecordingTrouble::CannotWrite;
        tellUnprepared(trouble, failure.detail);
        return false;
    }
    m_url = file->url();
    try {
        startJob(std::move(*file), std::move(entry));
    } catch (const std::system_error &noThread) {
        m_capture->abandon();
        m_capture.reset();
        tellUnprepared(RecordingTrouble::CannotWrite, QString::fromLocal8Bit(noThread.what()));
        return false;
    }
    m_state = State::Prepared;
    return true;
}

/// Queued like all news: the caller is not done with preparing yet.
void PulseRecorder::tellUnprepared(RecordingTrouble trouble, const QString &detail)
{
    m_mailbox->deliver([trouble, detail](PulseRecorder &recorder) { Q_EMIT recorder.troubleOccurred(trouble, detail); });
}

void PulseRecorder::startJob(RecordingFile file, std::unique_ptr<RecordingJournal::Entry> entry)
{
    const auto mailbox = m_mailbox;
    const auto tellTroubleFromAnywhere = [mailbox](RecordingTrouble trouble, const QString &detail) {
        mailbox->deliver([=](PulseRecorder &recorder) { recorder.tellTrouble(trouble, detail); });
    };
    m_capture = m_parts.startCapture();
    m_capture->setEvents(
        {[mailbox] { mailbox->deliver([](PulseRecorder &recorder) { Q_EMIT recorder.captureStarted(); }); },
         tellTroubleFromAnywhere, [mailbox](InputCondition condition, const QString &microphone) {
             mailbox->deliver([=](PulseRecorder &recorder) {
                 Q_EMIT recorder.inputConditionChanged(condition, microphone);
             });
         }});
    const auto tellFinishedFromAnywhere = [mailbox](bool kept, const FileURL &url) {
        mailbox->deliver([=](PulseRecorder &recorder) { recorder.tellFinished(kept, url); });
    };
    auto job = std::make_shared<RecordingJob>(RecordingJob::Parts{m_capture, m_parts.encoders, std::move(entry),
                                                                  std::move(file), m_format, m_fileSize,
                                                                  tellTroubleFromAnywhere, tellFinishedFromAnywhere});
    try {
        m_parts.jobs->run([job] { job->run(); });
    } catch (const std::system_error &) {
        job->cancel();
        throw;
    }
}

bool PulseRecorder::isRunning() const
{
    return m_state == State::Prepared || m_state == State::Recording || m_state == State::Paused;
}

bool PulseRecorder::record()
{
    if (m_state != State::Prepared && m_state != State::Paused)
        return m_state == State::Recording;
    m_capture->resume();
    m_state = State::Recording;
    return true;
}

void PulseRecorder::pause()
{
    if (m_state != State::Recording)
        return;
    m_capture->pause();
    m_state = State::Paused;
}

void PulseRecorder::stop()
{
    if (!isRunning())
        return;
    m_capture->stop();
    m_state = State::Finishing;
}

double PulseRecorder::currentTime() const
{
    return m_capture ? double(m_capture->capturedSamples()) / CaptureStream::sampleRate : 0.0;
}

void PulseRecorder::updateMeters()
{
    m_power = m_metering && m_capture ? m_capture->decibels() : LevelMeter::silence;
}

float PulseRecorder::averagePower(int channel) const
{
    return channel == 0 ? m_power : LevelMeter::silence;
}

void PulseRecorder::tellTrouble(RecordingTrouble trouble, const QString &detail)
{
    if (isRunning())
        m_state = State::Finishing;
    Q_EMIT troubleOccurred(trouble, detail);
}

void PulseRecorder::tellFinished(bool kept, const FileURL &url)
{
    m_url = url;
    m_state = State::Finished;
    Q_EMIT finished(kept);
}

} // namespace kest
