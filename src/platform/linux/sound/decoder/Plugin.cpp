#include "platform/linux/sound/DecoderPlugin.h"
#include "platform/linux/sound/decoder/AacReader.h"

extern "C" {
#include <libavutil/log.h>
}

namespace kest {

namespace {

class AvDecoderPlugin final : public DecoderPlugin
{
public:
    // The libraries chat on standard error.
    AvDecoderPlugin() { av_log_set_level(AV_LOG_QUIET); }

    std::unique_ptr<SoundReader> openReader(int file, FileFailure *failure) override
    {
        auto reader = std::make_unique<AacReader>(file);
        if (auto failed = reader->open()) {
            *failure = *failed;
            return nullptr;
        }
        return reader;
    }
};

} // namespace

} // namespace kest

extern "C" Q_DECL_EXPORT kest::DecoderPlugin *kest_decoder_plugin_1()
{
    static kest::AvDecoderPlugin plugin;
    return &plugin;
}
