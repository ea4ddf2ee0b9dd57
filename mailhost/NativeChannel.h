#pragma once

#include "FrameReader.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QObject>

#include <memory>

class QSocketNotifier;

namespace kest {

/// Messages in and out over a pair of descriptors, in the format of browsers'
/// native messaging: a length in four bytes (native byte order), then that many
/// bytes of JSON in UTF-8.
///
/// Owns both descriptors. One thread, with an event loop; nothing blocks.
class NativeChannel : public QObject
{
    Q_OBJECT

public:
    /// The longest message taken, in bytes. A longer one ends the connection.
    static constexpr quint32 incomingLimit = FrameReader::lengthLimit;
    /// A browser takes at most 1 MiB at once; longer messages go out in pieces.
    static constexpr qsizetype outgoingLimit = 1024 * 1024;

    /// Takes over both descriptors and makes them non-blocking.
    NativeChannel(int readDescriptor, int writeDescriptor, QObject *parent = nullptr);
    ~NativeChannel() override;

    /// The process's standard input and output, moved aside: afterwards a stray
    /// print goes to standard error and cannot corrupt the messages.
    static std::unique_ptr<NativeChannel> overStandardStreams();

    /// Queues a message; it is written as fast as the other side reads.
    void send(const QJsonObject &message);

    /// Bytes of JSON queued, of which nothing or not all is written.
    qsizetype pendingBytes() const { return m_pendingBytes; }

Q_SIGNALS:
    void received(const QJsonObject &message);

    /// Once, at the end: the other side has closed, or `reason` says in words
    /// what made it impossible to go on.
    void closed(const QString &reason);

private Q_SLOTS:
    void readReady();
    void writeReady();

private:
    void takeMessages();
    void takeMessage(const QByteArray &message);
    bool beginFrame();
    void close(const QString &reason);

    int m_readDescriptor;
    int m_writeDescriptor;
    std::unique_ptr<QSocketNotifier> m_readNotifier;
    std::unique_ptr<QSocketNotifier> m_writeNotifier;
    FrameReader m_incoming;
    QList<QByteArray> m_outgoing;   ///< JSON, each message whole.
    qsizetype m_pendingBytes = 0;   ///< All of m_outgoing.
    qsizetype m_nextPiece = 0;      ///< Where in the first message the next frame begins.
    QByteArray m_frame;             ///< Being written.
    qsizetype m_written = 0;        ///< Of m_frame.
    bool m_closed = false;
};

} // namespace kest
