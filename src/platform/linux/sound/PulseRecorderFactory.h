#pragma once

#include "platform/AudioFileRecorder.h"
#include "platform/linux/sound/PulseRecorder.h"

#include <memory>

namespace kest {

/// Makes recorders over one connection to the sound server.
class PulseRecorderFactory final : public AudioFileRecorderFactory
{
public:
    PulseRecorderFactory(std::shared_ptr<PulseContext> context, std::shared_ptr<EncoderLoader> encoders,
                         std::shared_ptr<RecordingJournal> journal);

    std::unique_ptr<AudioFileRecorder> create(const FileURL &url, const AudioRecorderSettings &settings,
                                              Error *error) override;
    void preload() override;
    void warmUp() override;
    int finishInterruptedRecordings(const QList<FolderURL> &folders, int milliseconds) override;
    bool waitForFinished(int milliseconds) override { return m_jobs->waitForAll(milliseconds); }

private:
    std::shared_ptr<CaptureSession> startCapture();

    const std::shared_ptr<PulseContext> m_context;
    const std::shared_ptr<EncoderLoader> m_encoders;
    const std::shared_ptr<RecordingJournal> m_journal;
    const std::shared_ptr<RecordingJobs> m_jobs = std::make_shared<RecordingJobs>();
    const std::shared_ptr<std::shared_ptr<CaptureSession>> m_warm; // a microphone opened in advance, or null
};

} // namespace kest
