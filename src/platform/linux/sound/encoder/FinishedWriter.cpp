#include "platform/linux/sound/encoder/FinishedWriter.h"

#include "platform/linux/sound/encoder/AvHandles.h"

#include <QByteArray>

#include <algorithm>

namespace kest {

namespace {

/// Through /proc, so that it is the open file that is meant, wherever its
/// folder has gone meanwhile.
QByteArray pathOf(int file)
{
    return "file:/proc/self/fd/" + QByteArray::number(file);
}

class Copy
{
public:
    ~Copy();
    int openInput(int from);
    int openOutput(int to);
    int copyPackets(std::optional<qint64> sampleCount);

private:
    int inputStatus(int reading) const;
    int writePacket(AVPacket *packet, int64_t duration);

    AVFormatContext *m_input = nullptr;
    AVFormatContext *m_output = nullptr;
    int m_frameSize = 1024;
    int64_t m_nextTime = 0;
};

Copy::~Copy()
{
    avformat_close_input(&m_input);
    if (m_output) {
        avio_closep(&m_output->pb);
        avformat_free_context(m_output);
    }
}

int Copy::openInput(int from)
{
    AVDictionary *options = nullptr;
    // The packets' times are counted here, so the demuxer need not drop or trim any by the edit list.
    av_dict_set(&options, "ignore_editlist", "1", 0);
    av_dict_set(&options, "use_mfra_for", "0", 0);
    const int status = avformat_open_input(&m_input, pathOf(from).constData(), av_find_input_format("mov"), &options);
    av_dict_free(&options);
    if (status < 0)
        return status;
    if (m_input->nb_streams != 1 || m_input->streams[0]->codecpar->codec_id != AV_CODEC_ID_AAC)
        return AVERROR_INVALIDDATA;
    return 0;
}

int Copy::openOutput(int to)
{
    const QByteArray path = pathOf(to);
    if (const int status = avformat_alloc_output_context2(&m_output, nullptr, "ipod", path.constData()); status < 0)
        return status;
    if (const int status = avio_open(&m_output->pb, path.constData(), AVIO_FLAG_WRITE); status < 0)
        return status;
    AVStream *stream = avformat_new_stream(m_output, nullptr);
    if (!stream)
        return AVERROR(ENOMEM);
    const AVCodecParameters *parameters = m_input->streams[0]->codecpar;
    if (const int status = avcodec_parameters_copy(stream->codecpar, parameters); status < 0)
        return status;
    stream->codecpar->codec_tag = 0;
    stream->codecpar->initial_padding = m_frameSize;
    stream->time_base = {1, parameters->sample_rate};
    AVDictionary *options = nullptr;
    av_dict_set(&options, "movflags", "faststart", 0);
    av_dict_set_int(&options, "movie_timescale", parameters->sample_rate, 0);
    const int status = avformat_write_header(m_output, &options);
    av_dict_free(&options);
    m_nextTime = -m_frameSize;
    return status < 0 ? status : 0;
}

int Copy::copyPackets(std::optional<qint64> sampleCount)
{
    AvPacket packet(av_packet_alloc());
    if (!packet)
        return AVERROR(ENOMEM);
    const int64_t end = sampleCount.value_or(INT64_MAX / 2); // half: differences of times must not overflow
    int reading = 0;
    while (m_nextTime < end && (reading = av_read_frame(m_input, packet.get())) >= 0) {
        const int status = writePacket(packet.get(), std::min<int64_t>(m_frameSize, end - m_nextTime));
        av_packet_unref(packet.get());
        if (status < 0)
            return status;
    }
    if (const int status = inputStatus(reading); status < 0)
        return status;
    // Finishing on what is there would throw the rest of the recording away.
    if (m_nextTime <= 0 || (sampleCount && m_nextTime < end))
        return AVERROR_INVALIDDATA;
    if (const int status = av_write_trailer(m_output); status < 0)
        return status;
    avio_flush(m_output->pb);
    return std::min(m_output->pb->error, 0);
}

/// Whether the input was read to its end, which a crash may have cut anywhere.
int Copy::inputStatus(int reading) const
{
    if (m_input->pb->error < 0)
        return m_input->pb->error; // the demuxer can take a read error for the end
    return reading == AVERROR_EOF || reading == AVERROR_INVALIDDATA ? 0 : std::min(reading, 0);
}

int Copy::writePacket(AVPacket *packet, int64_t duration)
{
    packet->stream_index = 0;
    packet->pts = packet->dts = m_nextTime;
    packet->duration = duration;
    packet->pos = -1;
    packet->flags = AV_PKT_FLAG_KEY;
    av_packet_free_side_data(packet);
    m_nextTime += duration;
    if (const int status = av_write_frame(m_output, packet); status < 0)
        return status;
    return std::min(m_output->pb->error, 0);
}

} // namespace

std::optional<FileFailure> copyAsFinished(int from, int to, std::optional<qint64> sampleCount)
{
    Copy copy;
    int status = copy.openInput(from);
    if (status == 0)
        status = copy.openOutput(to);
    if (status == 0)
        status = copy.copyPackets(sampleCount);
    if (status < 0)
        return avFailure(status);
    return std::nullopt;
}

} // namespace kest
