#include "platform/linux/sound/CaptureGate.h"

#include <algorithm>

namespace kest {

namespace {

constexpr qint64 nanosecondsPerSecond = 1'000'000'000;

} // namespace

void CaptureGate::schedule(Action action, MonotonicTime time)
{
    const std::lock_guard lock(m_mutex);
    m_latest = std::max(m_latest, time);
    m_cuts.push_back({action, m_latest});
}

void CaptureGate::pass(const float *samples, qsizetype count, const std::function<MonotonicTime()> &start,
                       const std::function<void(const float *samples, qsizetype count)> &keep)
{
    const bool mayBeCut = hasCuts();
    const MonotonicTime chunkStart = mayBeCut ? start() : 0;
    const MonotonicTime chunkEnd = chunkStart + count * nanosecondsPerSecond / m_sampleRate;
    qsizetype position = 0;
    const auto advanceTo = [&](qsizetype next) {
        if (m_open && next > position)
            keep(samples + position, next - position);
        position = next;
    };
    Cut cut = {};
    while (mayBeCut && !m_ended && takeCutBefore(chunkEnd, &cut)) {
        const qsizetype offset = qsizetype((cut.time - chunkStart) * m_sampleRate / nanosecondsPerSecond);
        advanceTo(std::clamp(offset, position, count));
        m_open = cut.action == Action::Open;
        m_ended = cut.action == Action::End;
    }
    if (!m_ended)
        advanceTo(count);
}

bool CaptureGate::hasCuts()
{
    const std::lock_guard lock(m_mutex);
    return !m_cuts.empty();
}

bool CaptureGate::takeCutBefore(MonotonicTime time, Cut *cut)
{
    const std::lock_guard lock(m_mutex);
    if (m_cuts.empty() || m_cuts.front().time >= time)
        return false;
    *cut = m_cuts.front();
    m_cuts.pop_front();
    return true;
}

} // namespace kest
