#pragma once

// What every fuzz target has: the entry that libFuzzer calls, and a check that stays in all builds.

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Tries the bytes; returns 0. What must never happen ends the process.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

/// Ends the process, with the claim in words, when it does not hold.
#define KEST_MUST(claim)                                                                                               \
    do {                                                                                                               \
        if (!(claim)) {                                                                                                \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #claim);                            \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)

namespace kest::fuzz {

inline QByteArray bytesOf(const uint8_t *data, size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Takes small values off the front of an input, so that the fuzzer chooses them; zeroes when it has no more.
class Choices
{
public:
    Choices(const uint8_t *data, size_t size) : m_data(data), m_size(size) { }

    uint8_t byte()
    {
        if (m_size == 0)
            return 0;
        --m_size;
        return *m_data++;
    }

    /// As many bytes as the next byte says, times `unit`, or as there are.
    QByteArray bytes(size_t unit = 1)
    {
        const size_t wanted = byte() * unit;
        const QByteArray taken = bytesOf(m_data, wanted < m_size ? wanted : m_size);
        m_data += taken.size();
        m_size -= static_cast<size_t>(taken.size());
        return taken;
    }

    QByteArray rest() const { return bytesOf(m_data, m_size); }

private:
    const uint8_t *m_data;
    size_t m_size;
};

} // namespace kest::fuzz
