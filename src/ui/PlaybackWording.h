#pragma once

#include "platform/AudioFilePlayer.h"

#include <QString>

namespace kest {

/// What the window says when a recording is not played, or no longer.
QString wordsFor(PlaybackTrouble trouble);

/// Where it is heard, "0:03": whole seconds that have passed, with hours where
/// the length has them. The length itself at the end.
QString positionText(double position, double length);

/// "0:03 of 0:12", for those who cannot see the waveform.
QString positionOfLengthText(double position, double length);

} // namespace kest
