#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace kest {

/// Cuts what arrives into messages, in the format of browsers' native
/// messaging: a length in four bytes (native byte order), then that many bytes.
///
/// Holds at most one message and what came with its last piece.
class FrameReader
{
public:
    /// The longest message taken, in bytes. Nothing after a longer one can be
    /// read with certainty.
    static constexpr quint32 lengthLimit = 4 * 1024 * 1024;

    void append(QByteArrayView bytes);

    /// The next whole message; nothing when more bytes are needed, or after a
    /// length above the limit.
    std::optional<QByteArray> next();

    /// The length that was above the limit; nothing as long as all is well.
    std::optional<quint32> impossibleLength() const { return m_impossible; }

    /// True when nothing of a further message has come.
    bool isAtBoundary() const { return m_bytes.size() == m_start; }

private:
    void forgetTaken();

    QByteArray m_bytes;
    qsizetype m_start = 0; ///< Where the next message begins.
    std::optional<quint32> m_impossible;
};

/// The JSON object that a message is; nothing when it is none, or when it has
/// so many parts (beyond 131,072 values) that it would cost more memory than a
/// message is worth. Then `problem` says why, without quoting the message.
std::optional<QJsonObject> jsonObjectOf(const QByteArray &message, QString *problem);

} // namespace kest
