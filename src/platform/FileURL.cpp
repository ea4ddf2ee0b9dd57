#include "platform/FileURL.h"

namespace kest {

namespace {

// The bytes 0x80 to 0xFF travel as U+DC80 to U+DCFF, which valid UTF-8 never yields.
constexpr char16_t escapeBase = 0xdc00;

bool isEscapedByte(QChar unit)
{
    return unit.unicode() >= escapeBase + 0x80 && unit.unicode() <= escapeBase + 0xff;
}

// Length of the valid UTF-8 sequence at `at`, 0 when there is none.
qsizetype sequenceLength(const QByteArray &bytes, qsizetype at)
{
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const qsizetype length = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    const QByteArray piece = bytes.mid(at, length);
    return piece.size() == length && piece.isValidUtf8() ? length : 0;
}

QString decoded(const QByteArray &bytes)
{
    if (bytes.isValidUtf8())
        return QString::fromUtf8(bytes);
    QString text;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype length = sequenceLength(bytes, at);
        if (length > 0)
            text += QString::fromUtf8(bytes.mid(at, length));
        else
            text += QChar(static_cast<char16_t>(escapeBase + static_cast<unsigned char>(bytes[at])));
        at += qMax<qsizetype>(length, 1);
    }
    return text;
}

QByteArray encoded(const QString &text)
{
    QByteArray bytes;
    QString run;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool inPair = at > 0 && text[at - 1].isHighSurrogate();
        if (!isEscapedByte(text[at]) || inPair) {
            run += text[at];
            continue;
        }
        bytes += run.toUtf8() + static_cast<char>(text[at].unicode() - escapeBase);
        run.clear();
    }
    return bytes + run.toUtf8();
}

} // namespace

FileURL FileURL::fromNativePath(QByteArray nativePath)
{
    while (nativePath.size() > 1 && nativePath.endsWith('/'))
        nativePath.chop(1);
    FileURL url;
    url.m_path = std::move(nativePath);
    return url;
}

FileURL FileURL::fromPath(const QString &path)
{
    return fromNativePath(encoded(path));
}

QString FileURL::path() const
{
    return decoded(m_path);
}

QString FileURL::displayPath() const
{
    return QString::fromUtf8(m_path);
}

FileURL FileURL::appendingPathComponent(const QString &name) const
{
    return appendingNativePathComponent(encoded(name));
}

FileURL FileURL::appendingNativePathComponent(const QByteArray &name) const
{
    if (isEmpty())
        return {};
    return fromNativePath(m_path.endsWith('/') ? m_path + name : m_path + '/' + name);
}

FileURL FileURL::deletingLastPathComponent() const
{
    const auto slash = m_path.lastIndexOf('/');
    if (slash < 0)
        return {};
    return fromNativePath(slash == 0 ? QByteArray("/") : m_path.left(slash));
}

QString FileURL::lastPathComponent() const
{
    return decoded(nativeLastPathComponent());
}

QByteArray FileURL::nativeLastPathComponent() const
{
    return m_path.mid(m_path.lastIndexOf('/') + 1);
}

QString FileURL::pathExtension() const
{
    const QString name = lastPathComponent();
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot <= 0 ? QString() : name.mid(dot + 1);
}

} // namespace kest
