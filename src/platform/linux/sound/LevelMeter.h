#pragma once

#include <QtGlobal>

#include <array>
#include <atomic>

namespace kest {

/// Power of the last 100 ms in dBFS.
///
/// Fed by the capture thread, read by any. Root mean square over ten blocks of
/// 10 ms; full scale is 1.0, so a full-scale sine reads -3.01.
class LevelMeter
{
public:
    static constexpr float silence = -160.0F;

    explicit LevelMeter(int sampleRate);

    /// Capture thread.
    void add(const float *samples, qsizetype count);

    /// Capture thread: nothing is heard any more.
    void reset();

    /// Any thread. `silence` until 10 ms were heard.
    float decibels() const;

private:
    void closeBlock();

    const int m_blockSize;
    std::array<double, 10> m_blocks{}; // sums of squares
    int m_blockCount = 0;              // how many of them hold something
    int m_nextBlock = 0;
    double m_sum = 0;
    int m_inBlock = 0;
    std::atomic<double> m_power = 0; // mean square
};

} // namespace kest
