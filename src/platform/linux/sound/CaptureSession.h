#pragma once

#include "platform/AudioFileRecorder.h"
#include "platform/linux/sound/CaptureGate.h"
#include "platform/linux/sound/CaptureStream.h"
#include "platform/linux/sound/InputWatch.h"
#include "platform/linux/sound/LevelMeter.h"
#include "platform/linux/sound/PulseContext.h"
#include "platform/linux/sound/SampleRing.h"
#include "platform/linux/sound/WakeUp.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace kest {

/// The capture of one recording, from opening the microphone to the last sample.
///
/// Commands may come from any thread and never wait. Samples that belong to the
/// recording lie in the ring for one reader, unless nothing is to be kept; the
/// session has ended when `hasEnded` says so and the ring is empty. Ends by
/// itself when the microphone or the server fails; what was captured stays in
/// the ring.
class CaptureSession final : public std::enable_shared_from_this<CaptureSession>,
                             public PulseContextListener,
                             public PulseReader,
                             public CaptureStreamListener
{
public:
    enum class Keeping {
        Samples, ///< For the reader.
        Nothing, ///< They are metered and forgotten; `read` gives none.
    };

    /// Called on the PulseThread.
    struct Events {
        std::function<void()> captureStarted; ///< Once, with the first sample of the recording.
        std::function<void(RecordingTrouble trouble, const QString &detail)> troubleOccurred; ///< Once; it ends then.
        std::function<void(InputCondition condition, const QString &microphone)> inputConditionChanged;
    };

    /// Begins to open the microphone. Not running until `resume`.
    static std::shared_ptr<CaptureSession> start(const std::shared_ptr<PulseContext> &context,
                                                 Keeping keeping = Keeping::Samples);

    CaptureSession(const std::shared_ptr<PulseContext> &context, Keeping keeping);

    /// Who hears the events; those that already happened are told now.
    void setEvents(Events events);

    /// Samples spoken from now on belong to the recording, or no longer.
    void resume();
    void pause();

    /// The recording ends with what is spoken now. `hasEnded` follows within
    /// some tens of milliseconds, and in any case soon.
    void stop();

    /// Ends at once, because what it captures cannot be kept. Tells nothing: who
    /// knows why tells it.
    void abandon();

    qint64 capturedSamples() const { return m_captured.load(std::memory_order_acquire); }
    float decibels() const { return m_meter.decibels(); }
    bool hasEnded() const { return m_ended.load(std::memory_order_acquire); }

    /// For the one reader: takes samples out; waits up to `milliseconds` where
    /// there are none.
    qsizetype read(float *samples, qsizetype count, int milliseconds);

private:
    enum class State { WaitingForSource, Streaming, Ended };

    void sourcesChanged() override;
    void contextLost() override;
    int readingInterval() const override;
    void everythingRead(MonotonicTime looked) override;
    void samplesCaptured(const float *samples, qsizetype count, const std::function<MonotonicTime()> &start,
                         bool clipped) override;
    void streamLost() override;

    void post(std::function<void()> task);
    void open();
    void tryToOpenStream();
    void keep(const float *samples, qsizetype count);
    void firstSampleCaptured();
    void tellInputCondition();
    void watch();
    std::optional<RecordingTrouble> troubleOfWaiting(qint64 waited) const;
    QString microphoneName() const;
    void fail(RecordingTrouble trouble, const QString &detail = {});
    void end();

    // Not owned: the last owner must not be the thread that ends with the context.
    const std::weak_ptr<PulseContext> m_owner; // for other threads
    PulseContext *const m_context;             // for the PulseThread, which ends before the context does
    const Keeping m_keeping;
    CaptureGate m_gate;
    SampleRing m_ring;
    WakeUp m_samplesReady;
    LevelMeter m_meter;
    std::atomic<qint64> m_captured = 0;
    std::atomic<bool> m_ended = false;

    // The PulseThread's own:
    Events m_events;
    State m_state = State::WaitingForSource;
    std::unique_ptr<CaptureStream> m_stream;
    std::unique_ptr<PulseTimer> m_watch;
    std::optional<std::pair<RecordingTrouble, QString>> m_trouble;
    InputWatch m_inputWatch;
    InputCondition m_toldCondition = InputCondition::Unknown;
    MonotonicTime m_waitingSince = 0; // for the server, or for data
    MonotonicTime m_stopBy = 0;       // 0 while not stopping
    bool m_everReady = false;
};

} // namespace kest
