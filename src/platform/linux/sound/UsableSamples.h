#pragma once

#include <QtGlobal>

#include <vector>

namespace kest {

/// Samples of which every one is a number that sound can have.
///
/// A filter between microphone and recorder may bring forth NaN and infinities;
/// a codec refuses a frame that has one, and a mean that has one is none. Such
/// samples are 0 here, and what is louder than `loudestSample` is as loud as
/// that. Gives `samples` themselves where nothing is wrong with them, else what
/// it has put into `room`.
const float *usableSamples(const float *samples, qsizetype count, std::vector<float> &room);

/// 40 dB above full scale: clipped in any case, and far below what a codec
/// refuses.
inline constexpr float loudestSample = 100.0F;

} // namespace kest
