#pragma once

#include "platform/linux/sound/EncoderLoader.h"

#include <memory>
#include <vector>

namespace kest::test {

/// The real encoder, and a copy of every sample that was handed to it: what
/// encoding loses by design does not blur what capturing must not lose.
class TeeEncoder final : public EncoderLoader
{
public:
    TeeEncoder();
    ~TeeEncoder() override;

    EncoderPlugin *load(QString *problem) override;

    /// Complete when the recording is finished; not to be read before.
    const std::vector<float> &samples() const { return m_samples; }

private:
    class Plugin;
    std::unique_ptr<Plugin> m_plugin;
    std::vector<float> m_samples;
};

} // namespace kest::test
