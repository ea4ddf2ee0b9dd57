#pragma once

#include "platform/linux/sound/DecoderPlugin.h"
#include "platform/linux/sound/encoder/AvHandles.h"

#include <vector>

namespace kest {

/// Decodes the AAC track of an MPEG-4 file, sample-exact: the file's edit list
/// and length decide what belongs to the recording, also after a seek.
class AacReader final : public SoundReader
{
public:
    explicit AacReader(int file) : m_file(file) { }
    ~AacReader() override;

    /// Nothing when all is well.
    std::optional<FileFailure> open();

    int sampleRate() const override { return m_codec->sample_rate; }
    qint64 length() const override { return m_length; }
    std::optional<FileFailure> seek(qint64 sample) override;
    qsizetype read(float *samples, qsizetype count, FileFailure *failure) override;

private:
    int openContainer();
    int openDecoder();
    int decodeMore();
    int receiveFrame();
    bool keepFrame();
    static int readBytes(void *self, uint8_t *buffer, int size);
    static int64_t seekBytes(void *self, int64_t offset, int whence);

    const int m_file;
    int64_t m_offset = 0; // of the file, in bytes
    AVFormatContext *m_container = nullptr;
    AVStream *m_stream = nullptr;
    AvCodec m_codec;
    AvPacket m_packet{av_packet_alloc()};
    AvFrame m_frame{av_frame_alloc()};
    qint64 m_length = 0;
    qint64 m_next = 0;            // the sample that the next read begins with
    std::vector<float> m_decoded; // from m_next on
    size_t m_taken = 0;           // of m_decoded
    bool m_pending = false; // the frame waits for a gap to be filled
    bool m_ended = false;
};

} // namespace kest
