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

constexpr qsizetype lengthSize = sizeof(quint32);
constexpr qsizetype readStep = 64 * 1024;
// A multiple of three, so that the pieces' base64 joined is the whole's.
constexpr qsizetype pieceSize = 750000;

void makeNonBlocking(int descriptor)
{
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
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
    const QByteArray json = QJsonDocument(message).toJson(QJsonDocument::Compact);
    if (json.size() <= outgoingLimit - 1024) {
        queueFrame(json);
        return;
    }
    for (qsizetype start = 0; start < json.size(); start += pieceSize) {
        const QString piece = QString::fromLatin1(json.mid(start, pieceSize).toBase64());
        const QJsonObject part {{QStringLiteral("piece"), piece},
                                {QStringLiteral("last"), start + pieceSize >= json.size()}};
        queueFrame(QJsonDocument(part).toJson(QJsonDocument::Compact));
    }
}

void NativeChannel::queueFrame(const QByteArray &json)
{
    if (m_closed)
        return;
    const auto length = static_cast<quint32>(json.size());
    QByteArray frame(lengthSize, Qt::Uninitialized);
    std::memcpy(frame.data(), &length, sizeof length);
    frame.append(json);
    m_pendingBytes += frame.size();
    m_outgoing.append(std::move(frame));
    m_writeNotifier->setEnabled(true);
}

void NativeChannel::writeReady()
{
    while (!m_outgoing.isEmpty()) {
        const QByteArray &frame = m_outgoing.constFirst();
        const ssize_t count = ::write(m_writeDescriptor, frame.constData() + m_written,
                                      static_cast<size_t>(frame.size() - m_written));
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (count < 0)
            return close(QStringLiteral("The mail application no longer listens."));
        m_written += count;
        m_pendingBytes -= count;
        if (m_written < frame.size())
            return;
        m_outgoing.removeFirst();
        m_written = 0;
    }
    m_writeNotifier->setEnabled(false);
}

void NativeChannel::readReady()
{
    const qsizetype before = m_incoming.size();
    m_incoming.resize(before + readStep);
    const ssize_t count = ::read(m_readDescriptor, m_incoming.data() + before, readStep);
    const int error = errno;
    m_incoming.resize(before + qMax<qsizetype>(count, 0));
    if (count > 0)
        return takeFrames();
    if (count < 0 && (error == EAGAIN || error == EINTR))
        return;
    const bool whole = m_incoming.isEmpty();
    close(whole ? QStringLiteral("The mail application has closed the connection.")
                : QStringLiteral("The mail application has closed the connection in the middle of a message."));
}

void NativeChannel::takeFrames()
{
    qsizetype start = 0;
    while (!m_closed && m_incoming.size() - start >= lengthSize) {
        quint32 length = 0;
        std::memcpy(&length, m_incoming.constData() + start, sizeof length);
        if (length > incomingLimit)
            return close(QStringLiteral("The mail application announced a message of %1 bytes.").arg(length));
        if (m_incoming.size() - start - lengthSize < length)
            break;
        takeFrame(QByteArray::fromRawData(m_incoming.constData() + start + lengthSize, length));
        start += lengthSize + length;
    }
    m_incoming.remove(0, start);
}

void NativeChannel::takeFrame(const QByteArray &frame)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(frame, &problem);
    if (!document.isObject()) {
        // The framing is still sound, so one senseless message does not end the connection.
        qCWarning(hostLog) << "passed over a message that is no JSON object:" << problem.errorString();
        return;
    }
    Q_EMIT received(document.object());
}

void NativeChannel::close(const QString &reason)
{
    if (m_closed)
        return;
    m_closed = true;
    m_readNotifier->setEnabled(false);
    m_writeNotifier->setEnabled(false);
    m_outgoing.clear();
    m_pendingBytes = 0;
    Q_EMIT closed(reason);
}

} // namespace kest
