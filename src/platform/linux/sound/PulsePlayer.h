#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/linux/sound/Mailbox.h"
#include "platform/linux/sound/PlaybackSession.h"
#include "platform/linux/sound/RecordingJobs.h"

#include <QTimer>

#include <atomic>
#include <memory>

namespace kest {

/// Plays over the sound server: passes commands on to a PlaybackDecoder and a
/// PlaybackSession for each stretch, and brings their news to the main thread.
/// Until a file is opened it costs nothing: no thread, no decoder.
class PulsePlayer final : public AudioFilePlayer
{
    Q_OBJECT

public:
    PulsePlayer(std::shared_ptr<PulseContext> context, std::shared_ptr<DecoderLoader> decoders);
    ~PulsePlayer() override;

    void open(const FileURL &file) override;
    void close() override;
    void play() override;
    void pause() override;
    void seek(double seconds) override;
    bool isPlaying() const override { return m_playing; }
    double position() const override;
    double length() const override { return m_length; }

private:
    /// Tells news of the present file from those of an earlier one.
    using Turn = quint64;

    Q_INVOKABLE void takeNews() { m_mailbox->takeOne(); }
    void read();
    void readingFailed(const PlaybackFailure &failure);
    void startSession();
    void stopSession();
    void setPlaying(bool playing);
    void takeVersion(const FileVersion &version, double seconds);
    void sessionEnded();
    void sessionFailed(const PlaybackFailure &failure);

    const std::shared_ptr<PulseContext> m_context;
    const std::shared_ptr<DecoderLoader> m_decoders;
    const std::shared_ptr<Mailbox<PulsePlayer>> m_mailbox = std::make_shared<Mailbox<PulsePlayer>>(this);
    const std::shared_ptr<RecordingJobs> m_jobs = std::make_shared<RecordingJobs>();
    std::shared_ptr<std::atomic<bool>> m_readingCancelled; // null while no waveform is being read
    std::shared_ptr<PlaybackSession> m_session;            // null while nothing plays
    std::shared_ptr<PlaybackBuffer> m_buffer;              // the session's
    QTimer m_restart;                                      // after a seek
    FileURL m_file;
    std::optional<FileVersion> m_version; // of what length and waveform belong to
    double m_position = 0.0;              // while no session has it
    double m_length = 0.0;
    Turn m_turn = 0;
    bool m_playing = false;
};

} // namespace kest
