#include "platform/linux/sound/EncoderLoader.h"

namespace kest {

EncoderPlugin *EncoderLoader::load(QString *problem)
{
    const std::lock_guard lock(m_mutex);
    void *entry = m_library.entry(encoderPluginEntry, problem);
    return entry ? reinterpret_cast<EncoderPluginEntry>(entry)() : nullptr;
}

} // namespace kest
