#pragma once

#include "platform/linux/sound/DecoderPlugin.h"

#include <QList>

#include <atomic>

namespace kest {

/// The loudest sample of each of at most `mostPeaks` equal parts of the sound,
/// full scale 1; fewer where there are fewer samples.
///
/// What is longer than `readWhole` samples is looked at in many evenly spread
/// places instead of being decoded whole: so much work, whatever the length.
/// Ends early, with what it has, when `cancelled` becomes true.
QList<float> scanWaveform(SoundReader &reader, int mostPeaks, const std::atomic<bool> &cancelled,
                          qint64 readWhole = qint64(10) * 60 * 44100);

} // namespace kest
