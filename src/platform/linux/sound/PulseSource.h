#pragma once

#include <QtGlobal>

#include <pulse/channelmap.h>
#include <pulse/sample.h>

#include <optional>
#include <string>
#include <vector>

namespace kest {

/// One source of the sound server, as last announced. Names are UTF-8.
///
/// A copy shares nothing with its original, so that each thread's is its own.
struct PulseSource {
    quint32 index = 0;
    std::string name;        ///< The server's own name, unique at a time.
    std::string description; ///< For people.
    pa_channel_map channels = {};
    bool isMonitor = false; ///< Hears what a sink plays.
    quint32 monitorOf = 0;  ///< The sink's index, for a monitor.
    std::string monitorOfName;
};

/// What the sound server last announced.
struct PulseSources {
    bool connected = false;
    std::string defaultSource; ///< Empty, or a name that need not exist.
    std::string defaultSink;
    std::vector<PulseSource> sources;

    const PulseSource *find(quint32 index) const;

    /// The source to record from, or nothing when there is no microphone.
    ///
    /// It is the default source. A monitor is no microphone: without one,
    /// servers fall back to the monitor of the default sink. It counts only
    /// where it must have been chosen: when it is another sink's, or when there
    /// is a real microphone that it was preferred to.
    std::optional<PulseSource> microphone() const;
};

} // namespace kest
