#include "NativeChannel.h"

#include "Logging.h"

#include <QJsonDocument>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr size_t readStep = 64 * 1024;
// A multiple of three, so that the pieces' base64 joined is the whole's.
constexpr qsizetype pieceSize = 750000;

void makeNonBlocking(int descriptor)
{
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

QByteArray framed(const QByteArray &json)
{
    const auto length = static_cast<quint32>(json.size());
    QByteArray frame(sizeof length, Qt::Uninitialized);
    std::memcpy(frame.data(), &length, sizeof length);
    return frame.append(json);
}

QByteArray pieceOf(const QByteArray &message, qsizetype start)
{
    const QJsonObject piece {{QStringLiteral("piece"), QString::fromLatin1(message.mid(start, pieceSize).toBase64())},
                             {QStringLiteral("last"), start + pieceSize >= message.size()}};
    return QJsonDocument(piece).toJson(QJsonDocument::Compact);
}

} // namespace

NativeChannel::NativeChannel(int readDescriptor, int writeDescriptor, QObject *parent)
    : QObject(parent)
    , m_readDescriptor(readDescriptor)
    , m_writeDescriptor(writeDescriptor)
    , m_readNotifier(std::make_unique<QSocketNotifier>(readDescriptor, QSocketNotifier::Read))
    , m_writeNotifier(std::make_unique<QSocketNotifier>(writeDescriptor, QSocketNotifier::Write))
{
    makeNonBlocking(m_readDescriptor);
    makeNonBlocking(m_writeDescriptor);
    m_writeNotifier->setEnabled(false);
    connect(m_readNotifier.get(), &QSocketNotifier::activated, this, &NativeChannel::readReady);
    connect(m_writeNotifier.get(), &QSocketNotifier::activated, this, &NativeChannel::writeReady);
}

NativeChannel::~NativeChannel()
{
    m_readNotifier.reset();
    m_writeNotifier.reset();
    ::close(m_readDescriptor);
    ::close(m_writeDescriptor);
}

std::unique_ptr<NativeChannel> NativeChannel::overStandardStreams()
{
    // A reader that goes away shows as an error of write, not as a signal.
    std::signal(SIGPIPE, SIG_IGN);
    const int in = dup(STDIN_FILENO);
    const int out = dup(STDOUT_FILENO);
    const int null = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(null, STDIN_FILENO);
    ::close(null);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return std::make_unique<NativeChannel>(in, out);
}

void NativeChannel::send(const QJsonObject &message)
{
    if (m_closed)
        return;
    m_outgoing.append(QJsonDocument(message).toJson(QJsonDocument::Compact));
    m_pendingBytes += m_outgoing.constLast().size();
    m_writeNotifier->setEnabled(true);
}

void NativeChannel::writeReady()
{
    while (m_written < m_frame.size() || beginFrame()) {
        const ssize_t count = ::write(m_writeDescriptor, m_frame.constData() + m_written,
                                      static_cast<size_t>(m_frame.size() - m_written));
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (count < 0)
            return close(QStringLiteral("The mail application no longer listens."));
        m_written += count;
        if (m_written < m_frame.size())
            return;
    }
    m_writeNotifier->setEnabled(false);
}

/// Cut up only now, so that a long message is not in memory twice. False when nothing is left to write.
bool NativeChannel::beginFrame()
{
    m_frame = {};
    m_written = 0;
    if (m_outgoing.isEmpty())
        return false;
    const QByteArray &message = m_outgoing.constFirst();
    const bool fits = message.size() <= outgoingLimit - 1024;
    m_frame = framed(fits ? message : pieceOf(message, m_nextPiece));
    m_nextPiece += pieceSize;
    if (fits || m_nextPiece >= message.size()) {
        m_pendingBytes -= message.size();
        m_nextPiece = 0;
        m_outgoing.removeFirst();
    }
    return true;
}

void NativeChannel::readReady()
{
    char bytes[readStep];
    const ssize_t count = ::read(m_readDescriptor, bytes, sizeof bytes);
    if (count > 0) {
        m_incoming.append({bytes, count});
        return takeMessages();
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    close(m_incoming.isAtBoundary()
              ? QStringLiteral("The mail application has closed the connection.")
              : QStringLiteral("The mail application has closed the connection in the middle of a message."));
}

void NativeChannel::takeMessages()
{
    while (const auto message = m_incoming.next()) {
        takeMessage(*message);
        if (m_closed)
            return;
    }
    if (const auto length = m_incoming.impossibleLength())
        close(QStringLiteral("The mail application announced a message of %1 bytes.").arg(*length));
}

void NativeChannel::takeMessage(const QByteArray &message)
{
    QString problem;
    if (const auto object = jsonObjectOf(message, &problem))
        Q_EMIT received(*object);
    else // The framing is still sound, so one senseless message does not end the connection.
        qCWarning(hostLog).noquote() << "passed over a message that is no JSON object:" << problem;
}

void NativeChannel::close(const QString &reason)
{
    if (m_closed)
        return;
    m_closed = true;
    m_readNotifier->setEnabled(false);
    m_writeNotifier->setEnabled(false);
    m_outgoing.clear();
    m_frame.clear();
    m_pendingBytes = 0;
    Q_EMIT closed(reason);
}

} // namespace kest
