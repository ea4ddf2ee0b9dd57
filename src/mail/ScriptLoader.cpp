#include "mail/ScriptLoader.h"

#include <pthread.h>

namespace kest {

ScriptPlugin *ScriptLoader::load(QString *problem)
{
    const std::lock_guard lock(m_mutex);
    void *entry = m_library.entry(scriptPluginEntry, problem);
    return entry ? reinterpret_cast<ScriptPluginEntry>(entry)() : nullptr;
}

void ScriptLoader::preload()
{
    if (m_preloading.joinable())
        return;
    m_preloading = std::jthread([this] {
        pthread_setname_np(pthread_self(), "kest-script");
        QString problem; // told when somebody writes a message
        load(&problem);
    });
}

} // namespace kest
