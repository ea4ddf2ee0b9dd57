#include "platform/linux/sound/PlaybackStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kest {

namespace {

// Short enough that Pause and a seek feel immediate, long enough for a machine under load.
constexpr pa_usec_t bufferTime = 150 * PA_USEC_PER_MSEC;

/// The output that both servers make up where there is none.
constexpr char outputOfNothing[] = "auto_null";

pa_sample_spec monoOf(int sampleRate)
{
    return {PA_SAMPLE_FLOAT32NE, uint32_t(sampleRate), 1};
}

} // namespace

PlaybackStream::PlaybackStream(PulseContext &context, int sampleRate, PlaybackStreamListener &listener)
    : m_context(context), m_pulse(context.pulse()), m_sampleRate(sampleRate), m_listener(listener)
{
}

PlaybackStream::~PlaybackStream()
{
    forgetInquiry();
    if (!m_stream)
        return;
    m_pulse.stream_set_state_callback(m_stream, nullptr, nullptr);
    m_pulse.stream_set_moved_callback(m_stream, nullptr, nullptr);
    m_pulse.stream_disconnect(m_stream);
    m_pulse.stream_unref(m_stream);
}

bool PlaybackStream::open()
{
    const pa_sample_spec spec = monoOf(m_sampleRate);
    m_stream = m_pulse.stream_new(m_context.handle(), "Listening", &spec, nullptr);
    if (!m_stream)
        return false;
    m_pulse.stream_set_state_callback(
        m_stream, [](pa_stream *, void *self) { static_cast<PlaybackStream *>(self)->stateChanged(); }, this);
    m_pulse.stream_set_moved_callback(
        m_stream, [](pa_stream *, void *self) { static_cast<PlaybackStream *>(self)->moved(); }, this);
    pa_buffer_attr buffer = {};
    buffer.maxlength = buffer.prebuf = buffer.minreq = uint32_t(-1);
    buffer.tlength = uint32_t(m_pulse.usec_to_bytes(bufferTime, &spec));
    constexpr int flags = PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING;
    return m_pulse.stream_connect_playback(m_stream, nullptr, &buffer, pa_stream_flags_t(flags), nullptr, nullptr) == 0;
}

bool PlaybackStream::isReady() const
{
    return m_stream && m_pulse.stream_get_state(m_stream) == PA_STREAM_READY;
}

bool PlaybackStream::isHeard() const
{
    const char *name = m_pulse.stream_get_device_name(m_stream);
    return !name || std::strcmp(name, outputOfNothing) != 0;
}

void PlaybackStream::stateChanged()
{
    const pa_stream_state_t state = m_pulse.stream_get_state(m_stream);
    if (state == PA_STREAM_READY)
        noteOutput();
    else if (state == PA_STREAM_FAILED || state == PA_STREAM_TERMINATED)
        m_listener.streamLost();
}

void PlaybackStream::moved()
{
    // Moved on purpose, the output before is still there. The made-up one goes when there is another.
    if (m_output != PA_INVALID_INDEX)
        lookForOutput();
    noteOutput();
}

void PlaybackStream::noteOutput()
{
    m_output = isHeard() ? m_pulse.stream_get_device_index(m_stream) : PA_INVALID_INDEX;
}

void PlaybackStream::lookForOutput()
{
    if (m_inquiry || m_output == PA_INVALID_INDEX)
        return;
    m_inquiry = m_pulse.context_get_sink_info_by_index(
        m_context.handle(), m_output,
        [](pa_context *, const pa_sink_info *, int end, void *self) {
            if (end == 0)
                return; // it is there
            auto *stream = static_cast<PlaybackStream *>(self);
            stream->forgetInquiry();
            if (end < 0)
                stream->m_listener.outputLost();
        },
        this);
}

void PlaybackStream::forgetInquiry()
{
    pa_operation *inquiry = std::exchange(m_inquiry, nullptr);
    if (!inquiry)
        return;
    m_pulse.operation_cancel(inquiry);
    m_pulse.operation_unref(inquiry);
}

qsizetype PlaybackStream::wanted() const
{
    const size_t bytes = isReady() ? m_pulse.stream_writable_size(m_stream) : 0;
    return bytes == size_t(-1) ? 0 : qsizetype(bytes / sizeof(float));
}

void PlaybackStream::write(const float *samples, qsizetype count)
{
    if (m_pulse.stream_write(m_stream, samples, size_t(count) * sizeof(float), nullptr, 0, PA_SEEK_RELATIVE) == 0)
        m_written += count;
}

void PlaybackStream::drain()
{
    pa_operation *operation = m_pulse.stream_drain(
        m_stream, [](pa_stream *, int, void *self) { static_cast<PlaybackStream *>(self)->m_listener.streamDrained(); },
        this);
    if (operation)
        m_pulse.operation_unref(operation);
}

qint64 PlaybackStream::played() const
{
    pa_usec_t time = 0;
    // Unknown just after the start.
    if (!isReady() || m_pulse.stream_get_time(m_stream, &time) < 0)
        return 0;
    return std::min(qint64(double(time) * m_sampleRate / double(PA_USEC_PER_SEC)), m_written);
}

} // namespace kest
