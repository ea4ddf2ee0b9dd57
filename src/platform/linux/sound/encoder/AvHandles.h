#pragma once

// Owners for the C handles of libavcodec and libavformat, and its errors as ours.

#include "platform/linux/sound/FileFailure.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>

namespace kest {

struct AvDeleter {
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

using AvCodec = std::unique_ptr<AVCodecContext, AvDeleter>;
using AvFrame = std::unique_ptr<AVFrame, AvDeleter>;
using AvPacket = std::unique_ptr<AVPacket, AvDeleter>;

/// `code` is a negative AVERROR value.
inline FileFailure avFailure(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    // Codec errors are negative four-character codes, far from any errno.
    const int errorNumber = AVUNERROR(code);
    return {errorNumber < 4096 ? errorNumber : 0, QString::fromLocal8Bit(text)};
}

} // namespace kest
