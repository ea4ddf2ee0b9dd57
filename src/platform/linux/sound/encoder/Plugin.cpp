#include "platform/linux/sound/EncoderPlugin.h"
#include "platform/linux/sound/encoder/FragmentedWriter.h"

extern "C" {
#include <libavutil/log.h>
}

namespace kest {

namespace {

class AvPlugin final : public EncoderPlugin
{
public:
    // The libraries chat on standard error, about cut-off files too, which are expected here.
    AvPlugin() { av_log_set_level(AV_LOG_QUIET); }

    std::unique_ptr<RecordingWriter> createWriter(int file, const EncoderFormat &format, FileFailure *failure) override
    {
        auto writer = std::make_unique<FragmentedWriter>(file);
        if (auto failed = writer->open(format)) {
            *failure = *failed;
            return nullptr;
        }
        return writer;
    }
};

} // namespace

} // namespace kest

extern "C" Q_DECL_EXPORT kest::EncoderPlugin *kest_encoder_plugin_2()
{
    static kest::AvPlugin plugin;
    return &plugin;
}
