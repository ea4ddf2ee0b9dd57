#pragma once

#include "platform/PluginLibrary.h"
#include "platform/linux/sound/DecoderPlugin.h"

#include <mutex>

namespace kest {

/// Loads the decoder plugin once, when somebody first looks at a recording.
///
/// Any thread but the main one; a second caller waits for the first.
class DecoderLoader
{
public:
    /// `pluginFile` as PluginLibrary takes it; tests give one elsewhere.
    explicit DecoderLoader(const QByteArray &pluginFile = "kest-decoder.so") : m_library(pluginFile) { }

    /// The plugin, which stays loaded; null when it cannot be had, with the
    /// reason in `problem`.
    DecoderPlugin *load(QString *problem);

private:
    std::mutex m_mutex;
    PluginLibrary m_library;
};

} // namespace kest
