#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/AudioFileRecorder.h"
#include "platform/AudioHardware.h"
#include "platform/MicrophoneTrial.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace kest {

class DecoderLoader;
class EncoderLoader;
class PulseContext;

/// How recorders and players are made. The defaults are what the program uses.
struct PulseSoundOptions {
    QString applicationName = QStringLiteral("Kest");
    QByteArray journalFolder;                ///< Native path; empty: under XDG_STATE_HOME.
    QByteArray pulsePlugin = "kest-pulse.so"; ///< As PluginLibrary takes it.
    std::shared_ptr<EncoderLoader> encoders; ///< Null: the installed plugin.
    std::shared_ptr<DecoderLoader> decoders; ///< Likewise.
};

/// The sound server as the program sees it: recorders, a player, the trial of
/// the microphone and hardware queries over one connection, which is made in the
/// background and never waited for.
struct PulseSound {
    std::unique_ptr<AudioFileRecorderFactory> recorderFactory;
    std::unique_ptr<AudioHardware> audioHardware;
    std::unique_ptr<AudioFilePlayer> player;
    std::unique_ptr<MicrophoneTrial> microphoneTrial;
};

/// Main thread. Returns at once, whatever state the sound server is in.
PulseSound makePulseSound(const PulseSoundOptions &options = {});

} // namespace kest
