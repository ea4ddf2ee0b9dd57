#include "platform/linux/sound/LevelMeter.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kest {

LevelMeter::LevelMeter(int sampleRate) : m_blockSize(std::max(1, sampleRate / 100)) { }

void LevelMeter::add(const float *samples, qsizetype count)
{
    for (qsizetype i = 0; i < count; ++i) {
        m_sum += double(samples[i]) * double(samples[i]);
        if (++m_inBlock == m_blockSize)
            closeBlock();
    }
}

void LevelMeter::reset()
{
    m_blocks.fill(0);
    m_blockCount = m_nextBlock = m_inBlock = 0;
    m_sum = 0;
    m_decibels.store(silence, std::memory_order_relaxed);
}

void LevelMeter::closeBlock()
{
    m_blocks[m_nextBlock] = m_sum;
    m_nextBlock = (m_nextBlock + 1) % int(m_blocks.size());
    m_blockCount = std::min(m_blockCount + 1, int(m_blocks.size()));
    m_sum = 0;
    m_inBlock = 0;
    const double power = std::accumulate(m_blocks.begin(), m_blocks.end(), 0.0) / (double(m_blockCount) * m_blockSize);
    const double level = power > 0 ? 10 * std::log10(power) : double(silence);
    m_decibels.store(float(std::clamp(level, double(silence), 0.0)), std::memory_order_relaxed);
}

} // namespace kest
