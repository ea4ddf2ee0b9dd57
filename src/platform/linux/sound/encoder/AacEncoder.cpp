#include "platform/linux/sound/encoder/AacEncoder.h"

#include <QLoggingCategory>

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <utility>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(logEncoder, "kest.encoder")

constexpr int highestKept = 15000; // Hz; docs/decisions/0005-speech-bit-rate.md

} // namespace

int AacEncoder::open(const EncoderFormat &format)
{
    const AVCodec *codec = avcodec_find_encoder_by_name("aac");
    if (!codec)
        return AVERROR_ENCODER_NOT_FOUND;
    m_codec.reset(avcodec_alloc_context3(codec));
    m_frame.reset(av_frame_alloc());
    m_packet.reset(av_packet_alloc());
    if (!m_codec || !m_frame || !m_packet)
        return AVERROR(ENOMEM);
    m_codec->sample_rate = format.sampleRate;
    m_codec->bit_rate = format.bitRate;
    m_codec->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_codec->ch_layout = AV_CHANNEL_LAYOUT_MONO;
    m_codec->time_base = {1, format.sampleRate};
    m_codec->profile = FF_PROFILE_AAC_LOW;
    m_codec->cutoff = highestKept;
    m_codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER; // MPEG-4 files keep the codec's header outside the packets
    // docs/decisions/0005-speech-bit-rate.md
    if (av_opt_set(m_codec->priv_data, "aac_coder", "fast", 0) < 0)
        qCWarning(logEncoder, "The encoder has no fast coder: recordings cost more of the processor");
    if (const int status = avcodec_open2(m_codec.get(), codec, nullptr); status < 0)
        return status;
    return openFrame();
}

int AacEncoder::openFrame()
{
    m_frame->nb_samples = m_codec->frame_size;
    m_frame->format = m_codec->sample_fmt;
    m_frame->sample_rate = m_codec->sample_rate;
    if (const int status = av_channel_layout_copy(&m_frame->ch_layout, &m_codec->ch_layout); status < 0)
        return status;
    return av_frame_get_buffer(m_frame.get(), 0);
}

int AacEncoder::encode(const float *samples, qsizetype count, const PacketTaker &take)
{
    while (count > 0) {
        const qsizetype taken = std::min(qsizetype(m_codec->frame_size - m_pending), count);
        std::copy_n(samples, taken, reinterpret_cast<float *>(m_frame->data[0]) + m_pending);
        m_pending += int(taken);
        samples += taken;
        count -= taken;
        if (m_pending < m_codec->frame_size)
            return 0;
        if (const int status = sendPending(take))
            return status;
    }
    return 0;
}

int AacEncoder::finish(const PacketTaker &take)
{
    if (m_pending > 0) {
        if (const int status = sendPending(take))
            return status;
    }
    if (const int status = avcodec_send_frame(m_codec.get(), nullptr))
        return status;
    return receive(take);
}

int AacEncoder::sendPending(const PacketTaker &take)
{
    m_frame->nb_samples = std::exchange(m_pending, 0);
    m_frame->pts = m_sent;
    m_sent += m_frame->nb_samples;
    if (const int status = avcodec_send_frame(m_codec.get(), m_frame.get()); status < 0)
        return status;
    if (const int status = receive(take); status < 0)
        return status;
    // The codec may have kept the samples; it then gets another piece of memory for the next.
    m_frame->nb_samples = m_codec->frame_size;
    return av_frame_make_writable(m_frame.get());
}

int AacEncoder::receive(const PacketTaker &take)
{
    for (;;) {
        const int status = avcodec_receive_packet(m_codec.get(), m_packet.get());
        if (status == AVERROR(EAGAIN) || status == AVERROR_EOF)
            return 0;
        if (status < 0)
            return status;
        const int taken = take(m_packet.get());
        av_packet_unref(m_packet.get());
        if (taken < 0)
            return taken;
    }
}

} // namespace kest
