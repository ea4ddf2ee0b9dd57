#include "platform/linux/sound/DecoderLoader.h"

namespace kest {

DecoderPlugin *DecoderLoader::load(QString *problem)
{
    const std::lock_guard lock(m_mutex);
    void *entry = m_library.entry(decoderPluginEntry, problem);
    return entry ? reinterpret_cast<DecoderPluginEntry>(entry)() : nullptr;
}

} // namespace kest
