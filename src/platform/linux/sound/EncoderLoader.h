#pragma once

#include "platform/PluginLibrary.h"
#include "platform/linux/sound/EncoderPlugin.h"

#include <mutex>

namespace kest {

/// Loads the encoder plugin once, when it is first wanted.
///
/// Loading takes some tens of milliseconds and pulls in many libraries, so it
/// happens on a worker thread. Any thread; a second caller waits for the first.
class EncoderLoader
{
public:
    /// `pluginFile` as PluginLibrary takes it; tests give one elsewhere.
    explicit EncoderLoader(const QByteArray &pluginFile = "kest-encoder.so") : m_library(pluginFile) { }
    virtual ~EncoderLoader() = default;
    EncoderLoader(const EncoderLoader &) = delete;
    EncoderLoader &operator=(const EncoderLoader &) = delete;

    /// The plugin, which stays loaded; null when it cannot be had, with the
    /// reason in `problem`.
    virtual EncoderPlugin *load(QString *problem);

private:
    std::mutex m_mutex;
    PluginLibrary m_library;
};

} // namespace kest
