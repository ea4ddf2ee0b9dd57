#pragma once

#include <QtGlobal>

#include <vector>

namespace kest {

/// Tells samples that were cut off from those that are merely loud.
///
/// No standard says what clipping is once the samples are taken; what is common
/// is to count samples in a row at full scale. Four in a row on the same side
/// count here. Full scale begins 0.1 dB lower: sound servers change the rate of
/// most microphones, and after that a cut-off top is wavy. Both numbers are our
/// choice.
///
/// One for each stream, fed before its channels are mixed: in the mean of two
/// channels, what one of them cut off cannot be seen. Any one thread.
class ClippingDetector
{
public:
    static constexpr int samplesInARow = 4;
    static constexpr float fullScale = 0.98855F; ///< -0.1 dBFS

    explicit ClippingDetector(int channels) : m_rows(size_t(channels)) { }

    /// Interleaved samples, full scale -1 to 1. True when a channel was cut off
    /// in them; a row may have begun in the call before.
    bool hearsClipping(const float *interleaved, qsizetype frames);

private:
    std::vector<int> m_rows; // of each channel: samples in a row, negative for the lower side
};

} // namespace kest
