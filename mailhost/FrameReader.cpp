#include "FrameReader.h"

#include <QJsonDocument>

#include <cstring>

namespace kest {

namespace {

constexpr qsizetype lengthSize = sizeof(quint32);
constexpr qsizetype mostParts = 128 * 1024;
// A buffer that a long message has made larger is given back.
constexpr qsizetype usualBuffer = 256 * 1024;

/// How many values there are at most: each but the first follows a comma or an opening bracket outside a text.
qsizetype partsOf(const QByteArray &json)
{
    qsizetype parts = 0;
    bool inText = false;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char c = json[at];
        if (inText && c == '\\')
            ++at;
        else if (c == '"')
            inText = !inText;
        else if (!inText && (c == ',' || c == '[' || c == '{'))
            ++parts;
    }
    return parts;
}

} // namespace

void FrameReader::append(QByteArrayView bytes)
{
    if (m_impossible)
        return;
    forgetTaken();
    m_bytes.append(bytes);
}

std::optional<QByteArray> FrameReader::next()
{
    if (m_impossible || m_bytes.size() - m_start < lengthSize)
        return std::nullopt;
    quint32 length = 0;
    std::memcpy(&length, m_bytes.constData() + m_start, sizeof length);
    if (length > lengthLimit) {
        m_impossible = length;
        m_bytes = {};
        m_start = 0;
        return std::nullopt;
    }
    if (m_bytes.size() - m_start - lengthSize < length)
        return std::nullopt;
    const QByteArray message = m_bytes.mid(m_start + lengthSize, length);
    m_start += lengthSize + length;
    if (isAtBoundary())
        forgetTaken();
    return message;
}

void FrameReader::forgetTaken()
{
    if (m_start == 0)
        return;
    m_bytes.remove(0, m_start);
    m_start = 0;
    if (m_bytes.capacity() > usualBuffer && m_bytes.size() < usualBuffer)
        m_bytes.squeeze();
}

std::optional<QJsonObject> jsonObjectOf(const QByteArray &message, QString *problem)
{
    if (partsOf(message) > mostParts) {
        *problem = QStringLiteral("too many parts");
        return std::nullopt;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(message, &error);
    if (document.isObject())
        return document.object();
    *problem = error.error == QJsonParseError::NoError ? QStringLiteral("no object") : error.errorString();
    return std::nullopt;
}

} // namespace kest
