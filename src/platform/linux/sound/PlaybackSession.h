#pragma once

#include "platform/linux/sound/PlaybackBuffer.h"
#include "platform/linux/sound/PlaybackStream.h"

#include <atomic>
#include <functional>
#include <memory>

namespace kest {

/// One stretch of playing, from Play to Pause, the end or a trouble: brings what
/// a PlaybackBuffer holds to the sound server.
///
/// Commands may come from any thread and never wait.
class PlaybackSession final : public std::enable_shared_from_this<PlaybackSession>,
                              public PulseContextListener,
                              public PlaybackStreamListener
{
public:
    /// Called on the PulseThread; one of them, once, unless it is stopped.
    struct Events {
        std::function<void()> ended;
        std::function<void(const PlaybackFailure &failure)> failed;
    };

    /// Begins; `from` is where in the file the buffer begins, in seconds.
    static std::shared_ptr<PlaybackSession> start(const std::shared_ptr<PulseContext> &context,
                                                  const std::shared_ptr<PlaybackBuffer> &buffer, double from,
                                                  Events events);

    PlaybackSession(const std::shared_ptr<PulseContext> &context, const std::shared_ptr<PlaybackBuffer> &buffer,
                    double from, Events events);

    /// No sound from now on, and no event.
    void stop();

    /// Seconds in the file: what is heard now.
    double position() const { return m_position.load(std::memory_order_relaxed); }

private:
    void sourcesChanged() override { }
    void contextLost() override;
    void streamDrained() override;
    void streamLost() override;
    void outputLost() override;

    void begin();
    void tick();
    void tryToOpenStream();
    void feed();
    void watch();
    void fail(PlaybackTrouble trouble, const QString &detail = {});
    void end();

    // Not owned: the last owner must not be the thread that ends with the context.
    const std::weak_ptr<PulseContext> m_owner; // for other threads
    PulseContext *const m_context;             // for the PulseThread, which ends before the context does
    const std::shared_ptr<PlaybackBuffer> m_buffer;
    const double m_from;
    std::atomic<double> m_position;
    std::atomic<bool> m_stopped = false;

    // The PulseThread's own:
    Events m_events;
    std::unique_ptr<PlaybackStream> m_stream;
    std::unique_ptr<PulseTimer> m_timer;
    std::vector<float> m_samples;
    qint64 m_waitingSince = 0; // nanoseconds; for the file, the server, or for its wish for more
    bool m_draining = false;
    bool m_ended = false;
};

} // namespace kest
