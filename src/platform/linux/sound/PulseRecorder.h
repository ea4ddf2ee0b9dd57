#pragma once

#include "platform/AudioFileRecorder.h"
#include "platform/linux/sound/CaptureSession.h"
#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/Mailbox.h"
#include "platform/linux/sound/RecordingFile.h"
#include "platform/linux/sound/RecordingJobs.h"
#include "platform/linux/sound/RecordingJournal.h"

#include <atomic>
#include <functional>
#include <memory>

namespace kest {

/// The recorder that the window holds: passes commands on to a CaptureSession
/// and a RecordingJob, and brings their news to the main thread.
class PulseRecorder final : public AudioFileRecorder
{
    Q_OBJECT

public:
    struct Parts {
        std::function<std::shared_ptr<CaptureSession>()> startCapture; ///< Called by `prepareToRecord`.
        std::shared_ptr<EncoderLoader> encoders;
        std::shared_ptr<RecordingJournal> journal;
        std::shared_ptr<RecordingJobs> jobs;
    };

    PulseRecorder(FileURL url, const EncoderFormat &format, Parts parts);
    ~PulseRecorder() override;

    void setMeteringEnabled(bool enabled) override { m_metering = enabled; }
    bool prepareToRecord() override;
    bool record() override;
    void pause() override;
    void stop() override;
    double currentTime() const override;
    void updateMeters() override;
    float averagePower(int channel) const override;
    FileURL url() const override { return m_url; }
    qint64 fileSize() const override { return m_fileSize->load(std::memory_order_relaxed); }
    bool isFinishing() const override { return m_state == State::Finishing; }

private:
    enum class State { New, Prepared, Recording, Paused, Finishing, Finished };

    Q_INVOKABLE void takeNews() { m_mailbox->takeOne(); }
    void startJob(RecordingFile file, std::unique_ptr<RecordingJournal::Entry> entry);
    void tellUnprepared(RecordingTrouble trouble, const QString &detail);
    void tellTrouble(RecordingTrouble trouble, const QString &detail);
    void tellFinished(bool kept, const FileURL &url);
    bool isRunning() const;

    FileURL m_url;
    const EncoderFormat m_format;
    const Parts m_parts;
    const std::shared_ptr<Mailbox<PulseRecorder>> m_mailbox = std::make_shared<Mailbox<PulseRecorder>>(this);
    std::shared_ptr<CaptureSession> m_capture; // null until prepared
    const std::shared_ptr<std::atomic<qint64>> m_fileSize = std::make_shared<std::atomic<qint64>>(0); // the job's
    State m_state = State::New;
    bool m_metering = false;
    float m_power = LevelMeter::silence;
};

} // namespace kest
