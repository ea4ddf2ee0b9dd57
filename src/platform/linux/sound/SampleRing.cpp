#include "platform/linux/sound/SampleRing.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>

namespace kest {

namespace {

constexpr quint64 mask = quint64(SampleRing::places) - 1;
constexpr std::size_t bytes = std::size_t(SampleRing::places) * sizeof(float);

} // namespace

SampleRing::SampleRing()
{
    void *memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory != MAP_FAILED)
        m_samples = static_cast<float *>(memory);
}

SampleRing::~SampleRing()
{
    if (m_samples)
        munmap(m_samples, bytes);
}

qsizetype SampleRing::write(const float *samples, qsizetype count)
{
    if (!m_samples)
        return 0;
    const quint64 written = m_written.load(std::memory_order_relaxed);
    const quint64 used = written - m_read.load(std::memory_order_acquire);
    const qsizetype taken = std::min(count, capacity - qsizetype(used));
    const qsizetype start = qsizetype(written & mask);
    const qsizetype first = std::min(taken, places - start);
    std::memcpy(m_samples + start, samples, std::size_t(first) * sizeof(float));
    std::memcpy(m_samples, samples + first, std::size_t(taken - first) * sizeof(float));
    m_written.store(written + quint64(taken), std::memory_order_release);
    return taken;
}

qsizetype SampleRing::read(float *samples, qsizetype count)
{
    const quint64 read = m_read.load(std::memory_order_relaxed);
    const quint64 waiting = m_written.load(std::memory_order_acquire) - read;
    const qsizetype taken = std::min(count, qsizetype(waiting));
    if (taken == 0)
        return 0;
    const qsizetype start = qsizetype(read & mask);
    const qsizetype first = std::min(taken, places - start);
    std::memcpy(samples, m_samples + start, std::size_t(first) * sizeof(float));
    std::memcpy(samples + first, m_samples, std::size_t(taken - first) * sizeof(float));
    giveBack(m_givenBack, read + quint64(taken));
    m_read.store(read + quint64(taken), std::memory_order_release);
    return taken;
}

qsizetype SampleRing::available() const
{
    return qsizetype(m_written.load(std::memory_order_acquire) - m_read.load(std::memory_order_acquire));
}

void SampleRing::giveBack(quint64 from, quint64 to)
{
    // Before the read position is published: the writer cannot be there yet.
    while (to - from >= quint64(givenBackAtOnce)) {
        madvise(m_samples + (from & mask), std::size_t(givenBackAtOnce) * sizeof(float), MADV_DONTNEED);
        from += quint64(givenBackAtOnce);
        m_givenBack = from;
    }
}

} // namespace kest
