#pragma once

#include "mail/ScriptPlugin.h"
#include "platform/PluginLibrary.h"

#include <mutex>
#include <thread>

namespace kest {

/// Loads the script plugin once, when it is first wanted.
///
/// Any thread; a second caller waits for the first.
class ScriptLoader
{
public:
    /// `pluginFile` as PluginLibrary takes it; tests give one elsewhere.
    explicit ScriptLoader(const QByteArray &pluginFile = "kest-script.so") : m_library(pluginFile) { }

    /// The plugin, which stays loaded; null when it cannot be had, with the
    /// reason in `problem`.
    ScriptPlugin *load(QString *problem);

    /// Loads it on a thread of its own, so that a later load() need not; keeps
    /// silent when it cannot be had. Main thread.
    void preload();

private:
    std::mutex m_mutex;
    PluginLibrary m_library;
    std::jthread m_preloading; // the end of the program must not run into it
};

} // namespace kest
