#include "platform/linux/sound/encoder/FragmentedWriter.h"

#include <unistd.h>

#include <utility>

namespace kest {

namespace {

/// Packets of 23.2 ms. What is written at a time becomes a fragment of its own when it is at least this much, so that
/// nothing whole lies about in memory until the next time; what is less waits for more, because fragments have tables.
constexpr int packetsWorthAFragment = 3;
constexpr int mostPacketsInFragment = 16;
constexpr int ioBufferSize = 16 * 1024;

} // namespace

FragmentedWriter::FragmentedWriter(int file) : m_file(file) { }

FragmentedWriter::~FragmentedWriter()
{
    if (!m_muxer)
        return;
    if (m_muxer->pb) {
        av_freep(&m_muxer->pb->buffer);
        avio_context_free(&m_muxer->pb);
    }
    avformat_free_context(m_muxer);
}

std::optional<FileFailure> FragmentedWriter::open(const EncoderFormat &format)
{
    int status = m_encoder.open(format);
    if (status == 0)
        status = openMuxer();
    return status < 0 ? failed(status) : std::nullopt;
}

int FragmentedWriter::openMuxer()
{
    if (const int status = avformat_alloc_output_context2(&m_muxer, nullptr, "ipod", nullptr); status < 0)
        return status;
    auto *buffer = static_cast<uint8_t *>(av_malloc(ioBufferSize));
    m_muxer->pb = avio_alloc_context(buffer, ioBufferSize, 1, this, nullptr, &FragmentedWriter::writeBytes, nullptr);
    AVStream *stream = avformat_new_stream(m_muxer, nullptr);
    if (!m_muxer->pb || !stream)
        return AVERROR(ENOMEM);
    m_muxer->pb->seekable = 0;
    m_muxer->flags |= AVFMT_FLAG_CUSTOM_IO;
    stream->time_base = m_encoder.context()->time_base;
    if (const int status = avcodec_parameters_from_context(stream->codecpar, m_encoder.context()); status < 0)
        return status;
    AVDictionary *options = nullptr;
    // The header waits for the first packets, so that its edit list can skip the encoder's run-up.
    av_dict_set(&options, "movflags", "empty_moov+default_base_moof+delay_moov+frag_custom+skip_trailer", 0);
    const int status = avformat_write_header(m_muxer, &options);
    av_dict_free(&options);
    return status < 0 ? status : 0;
}

std::optional<FileFailure> FragmentedWriter::write(const float *samples, qsizetype count)
{
    if (m_ended)
        return failed(AVERROR(EBADF));
    int status = m_encoder.encode(samples, count, [this](AVPacket *packet) { return takePacket(packet); });
    if (status >= 0 && m_packetsInFragment >= packetsWorthAFragment)
        status = flushFragment();
    return status < 0 ? failed(status) : std::nullopt;
}

std::optional<FileFailure> FragmentedWriter::close()
{
    if (m_ended)
        return failed(AVERROR(EBADF));
    int status = m_encoder.finish([this](AVPacket *packet) { return takePacket(packet); });
    if (status >= 0)
        status = flushFragment();
    if (status < 0)
        return failed(status);
    m_ended = true;
    return std::nullopt;
}

int FragmentedWriter::takePacket(AVPacket *packet)
{
    packet->stream_index = 0;
    av_packet_rescale_ts(packet, m_encoder.context()->time_base, m_muxer->streams[0]->time_base);
    if (const int status = av_write_frame(m_muxer, packet); status < 0)
        return status;
    if (++m_packetsInFragment < mostPacketsInFragment)
        return 0;
    return flushFragment();
}

int FragmentedWriter::flushFragment()
{
    m_packetsInFragment = 0;
    // The first time, the muxer writes only the header that was waiting, and keeps the packets back.
    for (int times = std::exchange(m_headerWaits, false) ? 2 : 1; times > 0; --times) {
        if (const int status = av_write_frame(m_muxer, nullptr); status < 0)
            return status;
    }
    avio_flush(m_muxer->pb);
    // The muxer forgets errors of writes that its buffer delayed.
    if (m_writeError)
        return AVERROR(m_writeError);
    if (m_muxer->pb->error < 0)
        return m_muxer->pb->error;
    m_wholeBytes = m_writtenBytes;
    return 0;
}

int FragmentedWriter::writeBytes(void *self, uint8_t *bytes, int count)
{
    auto *writer = static_cast<FragmentedWriter *>(self);
    if (writer->m_writeError)
        return AVERROR(writer->m_writeError);
    int written = 0;
    while (written < count) {
        const ssize_t done = pwrite(writer->m_file, bytes + written, count - written, writer->m_writtenBytes);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0) {
            writer->m_writeError = errno;
            return AVERROR(errno);
        }
        written += int(done);
        writer->m_writtenBytes += done;
    }
    return count;
}

std::optional<FileFailure> FragmentedWriter::failed(int status)
{
    if (!m_ended && m_writtenBytes > m_wholeBytes && ftruncate(m_file, m_wholeBytes) == 0)
        m_writtenBytes = m_wholeBytes;
    m_ended = true;
    return avFailure(m_writeError ? AVERROR(m_writeError) : status);
}

} // namespace kest
