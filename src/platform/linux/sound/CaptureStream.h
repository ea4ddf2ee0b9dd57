#pragma once

#include "platform/linux/sound/CaptureGate.h"
#include "platform/linux/sound/ClippingDetector.h"
#include "platform/linux/sound/PulseContext.h"

#include <functional>
#include <optional>
#include <vector>

namespace kest {

/// Hears what a CaptureStream brings. Called on the PulseThread.
class CaptureStreamListener
{
public:
    virtual ~CaptureStreamListener() = default;

    /// Mono samples, full scale -1 to 1. `start` tells the moment at which the
    /// first of them was captured, to those who ask during the call; `clipped`: a
    /// channel was cut off among them.
    virtual void samplesCaptured(const float *samples, qsizetype count, const std::function<MonotonicTime()> &start,
                                 bool clipped) = 0;

    /// The source is gone, or the stream was refused. Last call.
    virtual void streamLost() = 0;
};

/// One stream of samples from one source, averaged to mono.
///
/// Asks for the source's own channels and averages them here: servers' own
/// conversions to mono add, which is too loud and can clip. Stays with its source,
/// also when another becomes the default or somebody wants to move it, and ends
/// when the source goes away. For the PulseThread.
class CaptureStream
{
public:
    static constexpr int sampleRate = 44100;

    CaptureStream(PulseContext &context, const PulseSource &source, CaptureStreamListener &listener);
    ~CaptureStream();
    CaptureStream(const CaptureStream &) = delete;
    CaptureStream &operator=(const CaptureStream &) = delete;

    /// False when the server refuses at once.
    bool open();

    /// The context's sources changed: decides whether the stream's own is still
    /// there. May call `streamLost`, which may destroy this.
    void sourcesChanged();

    const PulseSource &source() const { return m_source; }

    /// How long ago the next sample to be read was captured, in nanoseconds.
    /// Nothing just after the start, when it is not known.
    std::optional<qint64> latency() const;

private:
    void stateChanged();
    void readAvailable();
    bool readChunk();
    const float *monoOf(const float *interleaved, qsizetype frames);
    MonotonicTime captureTime(qsizetype frames) const;

    PulseContext &m_context;
    const PulseFunctions &m_pulse;
    const PulseSource m_source;
    CaptureStreamListener &m_listener;
    pa_stream *m_stream = nullptr;
    ClippingDetector m_clipping;
    std::vector<float> m_mono; // made from several channels, or from a hole
    std::vector<float> m_usable; // where there were samples that no sound has
};

} // namespace kest
