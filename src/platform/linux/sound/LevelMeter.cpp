#include "platform/linux/sound/LevelMeter.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kest {

namespace {

double sumOfSquares(const float *samples, qsizetype count)
{
    // Sums beside each other: each addition to a single one would have to wait for the one before.
    std::array<double, 8> sums = {};
    qsizetype i = 0;
    for (; i + qsizetype(sums.size()) <= count; i += qsizetype(sums.size())) {
        for (size_t lane = 0; lane < sums.size(); ++lane)
            sums[lane] += double(samples[size_t(i) + lane]) * double(samples[size_t(i) + lane]);
    }
    for (; i < count; ++i)
        sums[0] += double(samples[i]) * double(samples[i]);
    return std::accumulate(sums.begin(), sums.end(), 0.0);
}

} // namespace

LevelMeter::LevelMeter(int sampleRate) : m_blockSize(std::max(1, sampleRate / 100)) { }

void LevelMeter::add(const float *samples, qsizetype count)
{
    while (count > 0) {
        const qsizetype taken = std::min(count, qsizetype(m_blockSize - m_inBlock));
        m_sum += sumOfSquares(samples, taken);
        m_inBlock += int(taken);
        samples += taken;
        count -= taken;
        if (m_inBlock == m_blockSize)
            closeBlock();
    }
}

float LevelMeter::decibels() const
{
    const double power = m_power.load(std::memory_order_relaxed);
    const double level = power > 0 ? 10 * std::log10(power) : double(silence);
    return float(std::clamp(level, double(silence), 0.0));
}

void LevelMeter::reset()
{
    m_blocks.fill(0);
    m_blockCount = m_nextBlock = m_inBlock = 0;
    m_sum = 0;
    m_power.store(0, std::memory_order_relaxed);
}

void LevelMeter::closeBlock()
{
    m_blocks[m_nextBlock] = m_sum;
    m_nextBlock = (m_nextBlock + 1) % int(m_blocks.size());
    m_blockCount = std::min(m_blockCount + 1, int(m_blocks.size()));
    m_sum = 0;
    m_inBlock = 0;
    const double power = std::accumulate(m_blocks.begin(), m_blocks.end(), 0.0) / (double(m_blockCount) * m_blockSize);
    m_power.store(power, std::memory_order_relaxed);
}

} // namespace kest
