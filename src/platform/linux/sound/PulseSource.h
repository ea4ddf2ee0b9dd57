#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <pulse/channelmap.h>
#include <pulse/sample.h>

#include <optional>

namespace kest {

/// One source of the sound server, as last announced.
struct PulseSource {
    quint32 index = 0;
    QByteArray name;     ///< The server's own name, unique at a time.
    QString description; ///< For people.
    pa_channel_map channels = {};
    bool isMonitor = false;  ///< Hears what a sink plays.
    quint32 monitorOf = 0;   ///< The sink's index, for a monitor.
    QByteArray monitorOfName;
};

/// What the sound server last announced.
struct PulseSources {
    bool connected = false;
    QByteArray defaultSource; ///< Empty, or a name that need not exist.
    QByteArray defaultSink;
    QList<PulseSource> sources;

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
