#include "platform/linux/sound/decoder/AacReader.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

/// Some twenty packets of speech. Small, because a look at a few packets here
/// and there is to cost little.
constexpr int ioBufferSize = 4 * 1024;

/// A frame overlaps with the one before; the codec's run-up is one more.
constexpr qint64 runUpSamples = 2 * 1024;

/// At a time, so that a damaged file costs no memory.
constexpr qint64 mostSilence = 64 * 1024;

} // namespace

AacReader::~AacReader()
{
    if (!m_container)
        return;
    AVIOContext *io = m_container->pb;
    avformat_close_input(&m_container);
    if (io) {
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
}

std::optional<FileFailure> AacReader::open()
{
    int status = openContainer();
    if (status >= 0)
        status = openDecoder();
    if (status < 0)
        return avFailure(status);
    m_length = std::max<qint64>(0, av_rescale_q(m_stream->duration, m_stream->time_base, {1, sampleRate()}));
    return std::nullopt;
}

int AacReader::openContainer()
{
    m_container = avformat_alloc_context();
    auto *buffer = static_cast<uint8_t *>(av_malloc(ioBufferSize));
    if (!m_container || !buffer)
        return AVERROR(ENOMEM);
    AVIOContext *io = avio_alloc_context(buffer, ioBufferSize, 0, this, &AacReader::readBytes, nullptr,
                                         &AacReader::seekBytes);
    if (!io) {
        av_free(buffer);
        return AVERROR(ENOMEM);
    }
    m_container->pb = io;
    // Only what we record: a file that took the place of one must not choose what reads it.
    const int status = avformat_open_input(&m_container, nullptr, av_find_input_format("mov"), nullptr);
    if (status < 0) { // which freed the container
        av_freep(&io->buffer);
        avio_context_free(&io);
    }
    return status;
}

int AacReader::openDecoder()
{
    const int index = av_find_best_stream(m_container, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (index < 0)
        return index;
    m_stream = m_container->streams[index];
    if (m_stream->codecpar->codec_id != AV_CODEC_ID_AAC || m_stream->codecpar->sample_rate <= 0)
        return AVERROR_DECODER_NOT_FOUND;
    const AVCodec *codec = avcodec_find_decoder(AV_CODEC_ID_AAC);
    m_codec.reset(avcodec_alloc_context3(codec));
    if (!m_codec || !m_packet || !m_frame)
        return AVERROR(ENOMEM);
    if (const int status = avcodec_parameters_to_context(m_codec.get(), m_stream->codecpar); status < 0)
        return status;
    m_codec->pkt_timebase = m_stream->time_base;
    return avcodec_open2(m_codec.get(), codec, nullptr);
}

std::optional<FileFailure> AacReader::seek(qint64 sample)
{
    m_next = std::clamp<qint64>(sample, 0, m_length);
    m_decoded.clear();
    m_taken = 0;
    m_ended = m_next == m_length;
    m_pending = false;
    av_frame_unref(m_frame.get());
    avcodec_flush_buffers(m_codec.get());
    const qint64 from = av_rescale_q(m_next - runUpSamples, {1, sampleRate()}, m_stream->time_base);
    const int status = av_seek_frame(m_container, m_stream->index, from, AVSEEK_FLAG_BACKWARD);
    return status < 0 ? std::optional(avFailure(status)) : std::nullopt;
}

qsizetype AacReader::read(float *samples, qsizetype count, FileFailure *failure)
{
    while (m_taken == m_decoded.size() && !m_ended) {
        m_decoded.clear();
        m_taken = 0;
        if (const int status = decodeMore(); status < 0) {
            *failure = avFailure(status);
            return -1;
        }
    }
    const auto ready = std::min(size_t(count), m_decoded.size() - m_taken);
    std::copy_n(m_decoded.begin() + qsizetype(m_taken), ready, samples);
    m_taken += ready;
    return qsizetype(ready);
}

/// One frame more, or the end.
int AacReader::decodeMore()
{
    int status = receiveFrame();
    while (status == AVERROR(EAGAIN)) {
        status = av_read_frame(m_container, m_packet.get());
        if (status < 0 && status != AVERROR_EOF)
            return status;
        if (status == 0 && m_packet->stream_index != m_stream->index) {
            av_packet_unref(m_packet.get());
            status = AVERROR(EAGAIN);
            continue;
        }
        // A damaged packet leaves a gap, which the next frame's time shows. At the end, nothing is to be sent.
        avcodec_send_packet(m_codec.get(), status < 0 ? nullptr : m_packet.get());
        av_packet_unref(m_packet.get());
        status = receiveFrame();
    }
    if (status == AVERROR_EOF) {
        m_ended = true;
        return 0;
    }
    return status;
}

int AacReader::receiveFrame()
{
    const int status = m_pending ? 0 : avcodec_receive_frame(m_codec.get(), m_frame.get());
    if (status < 0)
        return status == AVERROR_INVALIDDATA ? AVERROR(EAGAIN) : status;
    const bool usable = m_frame->format == AV_SAMPLE_FMT_FLTP && m_frame->sample_rate == sampleRate()
        && m_frame->pts != AV_NOPTS_VALUE;
    m_pending = usable && !keepFrame();
    if (!m_pending)
        av_frame_unref(m_frame.get());
    m_ended = m_next >= m_length;
    return 0;
}

/// What of the frame belongs to the recording and was not read yet. False when
/// there is a gap before it, which comes first, as silence.
bool AacReader::keepFrame()
{
    const qint64 start = av_rescale_q(m_frame->pts, m_stream->time_base, {1, sampleRate()});
    const qint64 end = std::min(start + m_frame->nb_samples, m_length);
    if (start > m_next && m_next < m_length) {
        m_decoded.assign(size_t(std::min({start - m_next, m_length - m_next, mostSilence})), 0.0F);
        m_next += qint64(m_decoded.size());
        return false;
    }
    if (end <= m_next)
        return true;
    m_decoded.assign(size_t(end - m_next), 0.0F);
    const int channels = m_codec->ch_layout.nb_channels;
    for (int channel = 0; channel < channels; ++channel) {
        const auto *samples = reinterpret_cast<const float *>(m_frame->extended_data[channel]);
        for (qint64 at = m_next; at < end; ++at)
            m_decoded[size_t(at - m_next)] += samples[at - start] / float(channels);
    }
    m_next = end;
    return true;
}

int AacReader::readBytes(void *self, uint8_t *buffer, int size)
{
    auto *reader = static_cast<AacReader *>(self);
    const ssize_t got = pread(reader->m_file, buffer, size_t(size), reader->m_offset);
    if (got < 0)
        return AVERROR(errno);
    reader->m_offset += got;
    return got == 0 ? AVERROR_EOF : int(got);
}

int64_t AacReader::seekBytes(void *self, int64_t offset, int whence)
{
    auto *reader = static_cast<AacReader *>(self);
    struct stat status = {};
    if (whence == AVSEEK_SIZE)
        return fstat(reader->m_file, &status) == 0 ? status.st_size : AVERROR(errno);
    if (whence != SEEK_SET)
        return AVERROR(EINVAL);
    return reader->m_offset = offset;
}

} // namespace kest
