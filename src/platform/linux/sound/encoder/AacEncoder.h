#pragma once

#include "platform/linux/sound/EncoderPlugin.h"
#include "platform/linux/sound/encoder/AvHandles.h"

#include <functional>

namespace kest {

/// Samples in, AAC-LC packets out.
///
/// A packet stands for 1024 samples; the first one is the encoder's own run-up,
/// so packet times begin at -1024.
class AacEncoder
{
public:
    /// Takes each finished packet; answers an AVERROR code, 0 for success.
    using PacketTaker = std::function<int(AVPacket *packet)>;

    /// 0, or the AVERROR code of what failed.
    int open(const EncoderFormat &format);

    /// Encodes samples, handing on what is complete. 0 or an AVERROR code.
    int encode(const float *samples, qsizetype count, const PacketTaker &take);

    /// Encodes the incomplete last frame and everything still held back.
    int finish(const PacketTaker &take);

    const AVCodecContext *context() const { return m_codec.get(); }

private:
    int openFrame();
    int sendPending(const PacketTaker &take);
    int receive(const PacketTaker &take);

    AvCodec m_codec;
    AvFrame m_frame; // has room for a whole frame
    AvPacket m_packet;
    int m_pending = 0;  // samples in the frame, less than it has room for
    int64_t m_sent = 0; // samples handed to the codec
};

} // namespace kest
