#include "platform/linux/sound/encoder/AacEncoder.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>

namespace kest {

namespace {

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
    av_opt_set(m_codec->priv_data, "aac_coder", "fast", 0); // docs/decisions/0005-speech-bit-rate.md
    const int status = avcodec_open2(m_codec.get(), codec, nullptr);
    if (status == 0)
        m_pending.reserve(m_codec->frame_size);
    return status;
}

int AacEncoder::encode(const float *samples, qsizetype count, const PacketTaker &take)
{
    while (count > 0) {
        const qsizetype room = m_codec->frame_size - qsizetype(m_pending.size());
        const qsizetype taken = std::min(room, count);
        m_pending.insert(m_pending.end(), samples, samples + taken);
        samples += taken;
        count -= taken;
        if (qsizetype(m_pending.size()) < m_codec->frame_size)
            return 0;
        if (const int status = sendPending(take))
            return status;
    }
    return 0;
}

int AacEncoder::finish(const PacketTaker &take)
{
    if (!m_pending.empty()) {
        if (const int status = sendPending(take))
            return status;
    }
    if (const int status = avcodec_send_frame(m_codec.get(), nullptr))
        return status;
    return receive(take);
}

int AacEncoder::sendPending(const PacketTaker &take)
{
    av_frame_unref(m_frame.get());
    m_frame->nb_samples = int(m_pending.size());
    m_frame->format = m_codec->sample_fmt;
    m_frame->sample_rate = m_codec->sample_rate;
    av_channel_layout_copy(&m_frame->ch_layout, &m_codec->ch_layout);
    if (const int status = av_frame_get_buffer(m_frame.get(), 0))
        return status;
    std::copy(m_pending.begin(), m_pending.end(), reinterpret_cast<float *>(m_frame->data[0]));
    m_frame->pts = m_sent;
    m_sent += m_frame->nb_samples;
    m_pending.clear();
    if (const int status = avcodec_send_frame(m_codec.get(), m_frame.get()))
        return status;
    return receive(take);
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
