#include "platform/linux/sound/PulseSource.h"

#include <algorithm>

namespace kest {

const PulseSource *PulseSources::find(quint32 index) const
{
    const auto found = std::find_if(sources.cbegin(), sources.cend(),
                                    [index](const PulseSource &source) { return source.index == index; });
    return found == sources.cend() ? nullptr : &*found;
}

std::optional<PulseSource> PulseSources::microphone() const
{
    const auto found = std::find_if(sources.cbegin(), sources.cend(),
                                    [this](const PulseSource &source) { return source.name == defaultSource; });
    if (!connected || defaultSource.empty() || found == sources.cend())
        return std::nullopt;
    if (!found->isMonitor || found->monitorOfName != defaultSink)
        return *found;
    const bool preferred = std::any_of(sources.cbegin(), sources.cend(),
                                       [](const PulseSource &source) { return !source.isMonitor; });
    return preferred ? std::optional(*found) : std::nullopt;
}

} // namespace kest
