#pragma once

#include "platform/linux/sound/EncoderPlugin.h"
#include "platform/linux/sound/encoder/AacEncoder.h"

namespace kest {

/// Writes a fragmented MPEG-4 file (ISO/IEC 14496-12, movie fragments): every
/// few frames a fragment is appended and at once in the file, so what a killed
/// program leaves behind is playable up to its last fragment.
class FragmentedWriter final : public RecordingWriter
{
public:
    explicit FragmentedWriter(int file);
    ~FragmentedWriter() override;
    FragmentedWriter(const FragmentedWriter &) = delete;
    FragmentedWriter &operator=(const FragmentedWriter &) = delete;

    std::optional<FileFailure> open(const EncoderFormat &format);

    std::optional<FileFailure> write(const float *samples, qsizetype count) override;
    std::optional<FileFailure> close() override;

private:
    static int writeBytes(void *self, uint8_t *bytes, int count);

    int openMuxer();
    int takePacket(AVPacket *packet);
    int flushFragment();
    std::optional<FileFailure> failed(int status);

    int m_file;
    AacEncoder m_encoder;
    AVFormatContext *m_muxer = nullptr;
    int m_packetsInFragment = 0;
    bool m_headerWaits = true;
    qint64 m_wholeBytes = 0;   // file length up to the last whole fragment
    qint64 m_writtenBytes = 0;
    int m_writeError = 0;      // errno of the first write that failed
    bool m_ended = false;
};

} // namespace kest
