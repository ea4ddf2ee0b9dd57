#include "platform/linux/sound/CaptureStream.h"

#include "platform/linux/sound/UsableSamples.h"

namespace kest {

namespace {

constexpr int fragmentMilliseconds = 20;
constexpr qint64 nanosecondsPerMicrosecond = 1000;
constexpr qint64 nanosecondsPerSecond = 1'000'000'000;

/// One that is only being made cannot be taken back yet; with nobody to hear it, it would keep the microphone open for as
/// long as the connection lasts. The context holds it until then.
void disconnectWhenMade(pa_stream *stream, const PulseFunctions &pulse)
{
    const auto stateChanged = [](pa_stream *made, void *functions) {
        const auto *library = static_cast<const PulseFunctions *>(functions);
        if (library->stream_get_state(made) == PA_STREAM_READY)
            library->stream_disconnect(made);
    };
    pulse.stream_set_state_callback(stream, stateChanged, const_cast<PulseFunctions *>(&pulse));
}

} // namespace

CaptureStream::CaptureStream(PulseContext &context, const PulseSource &source, CaptureStreamListener &listener)
    : m_context(context), m_pulse(context.pulse()), m_source(source), m_listener(listener),
      m_clipping(source.channels.channels)
{
}

CaptureStream::~CaptureStream()
{
    if (!m_stream)
        return;
    m_pulse.stream_set_state_callback(m_stream, nullptr, nullptr);
    m_pulse.stream_set_read_callback(m_stream, nullptr, nullptr);
    if (m_pulse.stream_get_state(m_stream) == PA_STREAM_CREATING)
        disconnectWhenMade(m_stream, m_pulse);
    else
        m_pulse.stream_disconnect(m_stream);
    m_pulse.stream_unref(m_stream);
}

bool CaptureStream::open()
{
    const pa_sample_spec spec = {PA_SAMPLE_FLOAT32NE, sampleRate, m_source.channels.channels};
    m_stream = m_pulse.stream_new(m_context.handle(), "Recording", &spec, &m_source.channels);
    if (!m_stream)
        return false;
    m_pulse.stream_set_state_callback(
        m_stream, [](pa_stream *, void *self) { static_cast<CaptureStream *>(self)->stateChanged(); }, this);
    m_pulse.stream_set_read_callback(
        m_stream, [](pa_stream *, size_t, void *self) { static_cast<CaptureStream *>(self)->readAvailable(); }, this);
    pa_buffer_attr buffer = {};
    buffer.maxlength = uint32_t(-1);
    buffer.fragsize = uint32_t(m_pulse.usec_to_bytes(fragmentMilliseconds * PA_USEC_PER_MSEC, &spec));
    // Servers move streams of their own accord: to a source that becomes the default, and when theirs goes away. In the
    // middle of a recording that would be silent, and cannot be told from a move that a person makes.
    constexpr int flags = PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE
        | PA_STREAM_INTERPOLATE_TIMING;
    return m_pulse.stream_connect_record(m_stream, m_source.name.c_str(), &buffer, pa_stream_flags_t(flags)) == 0;
}

void CaptureStream::stateChanged()
{
    const pa_stream_state_t state = m_pulse.stream_get_state(m_stream);
    if (state == PA_STREAM_FAILED || state == PA_STREAM_TERMINATED)
        m_listener.streamLost();
}

void CaptureStream::sourcesChanged()
{
    // Not every server ends a stream with its source.
    if (!m_context.sources().find(m_source.index))
        m_listener.streamLost();
}

void CaptureStream::readAvailable()
{
    while (m_stream && readChunk()) { }
}

bool CaptureStream::readChunk()
{
    const void *data = nullptr;
    size_t bytes = 0;
    if (m_pulse.stream_peek(m_stream, &data, &bytes) < 0 || bytes == 0)
        return false;
    const qsizetype frames = qsizetype(bytes / sizeof(float)) / m_source.channels.channels;
    const auto *interleaved = static_cast<const float *>(data); // null is a hole: what the server lost, kept as silence
    if (interleaved)
        interleaved = usableSamples(interleaved, frames * m_source.channels.channels, m_usable);
    const bool clipped = interleaved && m_clipping.hearsClipping(interleaved, frames);
    m_listener.samplesCaptured(monoOf(interleaved, frames), frames, [&] { return captureTime(frames); }, clipped);
    m_pulse.stream_drop(m_stream);
    return true;
}

const float *CaptureStream::monoOf(const float *interleaved, qsizetype frames)
{
    const int channels = m_source.channels.channels;
    if (interleaved && channels == 1)
        return interleaved;
    m_mono.resize(size_t(frames));
    for (qsizetype frame = 0; frame < frames; ++frame) {
        float sum = 0;
        for (int channel = 0; interleaved && channel < channels; ++channel)
            sum += interleaved[frame * channels + channel];
        m_mono[size_t(frame)] = sum / float(channels);
    }
    return m_mono.data();
}

std::optional<qint64> CaptureStream::latency() const
{
    pa_usec_t latency = 0;
    int negative = 0;
    if (!m_stream || m_pulse.stream_get_latency(m_stream, &latency, &negative) < 0 || negative)
        return std::nullopt;
    return qint64(latency) * nanosecondsPerMicrosecond;
}

MonotonicTime CaptureStream::captureTime(qsizetype frames) const
{
    // Unknown just after the start: then the last sample read is taken to be just captured.
    return monotonicNow() - latency().value_or(frames * nanosecondsPerSecond / sampleRate);
}

} // namespace kest
