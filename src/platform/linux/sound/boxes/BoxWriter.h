#pragma once

#include <QByteArray>
#include <QtEndian>

#include <concepts>
#include <span>

namespace kest {

/// Puts boxes (ISO/IEC 14496-12, 4.2) together in memory. Numbers are written
/// big-endian, in the width of their type.
class BoxWriter
{
public:
    template <std::unsigned_integral Number>
    void put(Number number)
    {
        const Number stored = qToBigEndian(number);
        m_bytes.append(reinterpret_cast<const char *>(&stored), sizeof stored);
    }

    void put(const QByteArray &bytes) { m_bytes.append(bytes); }

    void put(std::span<const quint32> numbers)
    {
        const qsizetype start = m_bytes.size();
        m_bytes.resize(start + qsizetype(numbers.size_bytes()));
        qToBigEndian<quint32>(numbers.data(), qsizetype(numbers.size()), m_bytes.data() + start);
    }

    /// Over what is at this byte already.
    template <std::unsigned_integral Number>
    void putAt(qsizetype position, Number number)
    {
        qToBigEndian(number, m_bytes.data() + position);
    }

    void putZeros(qsizetype count) { m_bytes.append(count, '\0'); }

    /// 64 bits when `wide`, else 32: times and lengths come in both.
    void putSized(quint64 number, bool wide)
    {
        if (wide)
            put(number);
        else
            put(quint32(number));
    }

    /// A box with what `content` writes.
    template <typename Content>
    void box(const char (&type)[5], Content content)
    {
        const qsizetype start = m_bytes.size();
        put(quint32(0));
        m_bytes.append(type, 4);
        content();
        putAt(start, quint32(m_bytes.size() - start));
    }

    /// A box with a version and flags in front.
    template <typename Content>
    void fullBox(const char (&type)[5], quint8 version, quint32 flags, Content content)
    {
        box(type, [&] {
            put(quint32(version) << 24 | flags);
            content();
        });
    }

    void reserve(qsizetype bytes) { m_bytes.reserve(bytes); }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

} // namespace kest
