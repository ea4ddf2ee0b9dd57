#pragma once

#include "NativeChannel.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace kest::test {

/// The add-on's end of a channel: two pipes, written and read by the test itself.
class AddonEnd
{
public:
    AddonEnd()
    {
        pipe2(m_toHost, O_CLOEXEC);
        pipe2(m_fromHost, O_CLOEXEC);
        fcntl(m_fromHost[0], F_SETFL, O_NONBLOCK);
        channel = std::make_unique<NativeChannel>(m_toHost[0], m_fromHost[1]);
    }

    ~AddonEnd()
    {
        channel.reset();
        closeWriting();
        ::close(m_fromHost[0]);
    }

    /// False when the pipe did not take all of it.
    bool write(const QByteArray &bytes)
    {
        return ::write(m_toHost[1], bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    }

    static QByteArray length(quint32 value)
    {
        QByteArray bytes(sizeof value, Qt::Uninitialized);
        std::memcpy(bytes.data(), &value, sizeof value);
        return bytes;
    }

    static QByteArray framed(const QByteArray &json) { return length(static_cast<quint32>(json.size())) + json; }

    bool send(const QJsonObject &message)
    {
        return write(framed(QJsonDocument(message).toJson(QJsonDocument::Compact)));
    }

    void closeWriting()
    {
        if (m_toHost[1] >= 0)
            ::close(m_toHost[1]);
        m_toHost[1] = -1;
    }

    /// Whole messages that the host has written so far.
    QList<QJsonObject> takeMessages()
    {
        char buffer[65536];
        for (ssize_t count = 0; (count = ::read(m_fromHost[0], buffer, sizeof buffer)) > 0;)
            m_received.append(buffer, count);
        QList<QJsonObject> messages;
        quint32 size = 0;
        while (m_received.size() >= qsizetype(sizeof size)) {
            std::memcpy(&size, m_received.constData(), sizeof size);
            if (m_received.size() < qsizetype(sizeof size + size))
                break;
            messages += QJsonDocument::fromJson(m_received.mid(sizeof size, size)).object();
            largestFrame = qMax<qsizetype>(largestFrame, size);
            m_received.remove(0, sizeof size + size);
        }
        return messages;
    }

    std::unique_ptr<NativeChannel> channel;
    qsizetype largestFrame = 0;

private:
    int m_toHost[2] = {-1, -1};
    int m_fromHost[2] = {-1, -1};
    QByteArray m_received;
};

} // namespace kest::test
