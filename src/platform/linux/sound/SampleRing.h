#pragma once

#include <QtGlobal>

#include <atomic>
#include <cstddef>

namespace kest {

/// A queue of samples between two threads: one writes, one reads, neither locks
/// or waits.
///
/// Holds 188 s at 44100 Hz, which is what the reader may be late by (codecs
/// that load, a disk that is slow to wake) before a sample is lost. It is
/// address space, not memory: pages are touched when written and given back
/// when read, so a reader that keeps up costs some hundred kilobytes.
class SampleRing
{
public:
    static constexpr qsizetype places = qsizetype(1) << 23;

    /// Memory is given back in blocks of this many samples: whole pages on every
    /// architecture, 1.5 s.
    static constexpr qsizetype givenBackAtOnce = 64 * 1024;

    /// The most that waits at a time. One block stays free, because what is read
    /// but not given back yet must not be written again.
    static constexpr qsizetype capacity = places - givenBackAtOnce;

    SampleRing();
    ~SampleRing();
    SampleRing(const SampleRing &) = delete;
    SampleRing &operator=(const SampleRing &) = delete;

    /// Writer's side. Puts in as much as there is room for and says how much.
    qsizetype write(const float *samples, qsizetype count);

    /// Reader's side. Takes out up to `count` samples and says how many.
    qsizetype read(float *samples, qsizetype count);

    /// How many samples wait. Either side; the other may change it meanwhile.
    qsizetype available() const;

private:
    void giveBack(quint64 from, quint64 to);

    float *m_samples = nullptr; // null when the system had no address space: then the ring holds nothing
    std::atomic<quint64> m_written = 0;
    std::atomic<quint64> m_read = 0;
    quint64 m_givenBack = 0; // reader's own
};

} // namespace kest
