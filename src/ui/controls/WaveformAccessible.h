#pragma once

namespace kest {

/// Has assistive technology find a slider in every WaveformView.
void installWaveformAccessible();

} // namespace kest
