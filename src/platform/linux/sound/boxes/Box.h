#pragma once

#include <QtEndian>

#include <concepts>
#include <optional>
#include <span>

namespace kest {

using Bytes = std::span<const uchar>;

/// The type of a box as its number: boxType("moov").
constexpr quint32 boxType(const char (&name)[5])
{
    quint32 type = 0;
    for (int i = 0; i < 4; ++i)
        type = type << 8 | quint32(uchar(name[i]));
    return type;
}

/// How a box begins (ISO/IEC 14496-12, 4.2).
struct BoxHeader {
    quint32 type = 0;
    quint64 size = 0;    ///< Bytes, with the header. At least `length`, at most anything: the end may be missing.
    quint32 length = 0;  ///< Bytes of the header alone: 8, or 16.

    static constexpr size_t longest = 16;
};

/// Reads the header that `bytes` begin with. `left` bytes remain from there to
/// the end of what holds the box; a size of zero means all of them. Null when
/// the header is cut off, or tells of a box smaller than itself.
std::optional<BoxHeader> readBoxHeader(Bytes bytes, quint64 left);

/// A box that is whole.
struct Box {
    quint32 type = 0;
    Bytes payload;
};

/// Takes the first box off `bytes`. Null at their end, and at a box that
/// reaches beyond it.
std::optional<Box> takeBox(Bytes *bytes);

/// The payload of the first box of this type directly in `bytes`.
std::optional<Bytes> findBox(Bytes bytes, quint32 type);

/// The payload of the only box of this type directly in `bytes`. Null when
/// there is none, or another.
std::optional<Bytes> findOnlyBox(Bytes bytes, quint32 type);

/// Reads big-endian fields one after the other. What is not there reads as
/// zero, and `isGood` is false from then on.
class FieldReader
{
public:
    explicit FieldReader(Bytes bytes) : m_bytes(bytes) { }

    template <std::unsigned_integral Number>
    Number read()
    {
        const Bytes field = take(sizeof(Number));
        return field.empty() ? Number(0) : qFromBigEndian<Number>(field.data());
    }

    /// The next `length` bytes; none when there are fewer.
    Bytes take(size_t length)
    {
        m_good = m_good && length <= m_bytes.size();
        if (!m_good)
            return {};
        const Bytes taken = m_bytes.first(length);
        m_bytes = m_bytes.subspan(length);
        return taken;
    }

    void skip(size_t length) { take(length); }

    Bytes rest() const { return m_bytes; }
    bool isGood() const { return m_good; }

private:
    Bytes m_bytes;
    bool m_good = true;
};

} // namespace kest
