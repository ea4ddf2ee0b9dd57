#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QStringList>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace kest::test {

/// The part of org.freedesktop.login1 that gives inhibitor locks, on the session
/// bus: to be found there, a program wants that bus's address in
/// DBUS_SYSTEM_BUS_ADDRESS.
class FakeLogind : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public:
    FakeLogind()
    {
        bus.registerObject(QStringLiteral("/org/freedesktop/login1"), this, QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.login1"));
    }

    ~FakeLogind() override
    {
        QDBusConnection::disconnectFromBus(bus.name());
        if (m_end >= 0)
            ::close(m_end);
    }

    /// True while the lock given last is held: nobody has closed its descriptor
    /// everywhere.
    bool isHeld() const
    {
        pollfd end{.fd = m_end, .events = POLLIN, .revents = 0};
        return m_end >= 0 && ::poll(&end, 1, 0) == 0;
    }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("logind"));
    QList<QStringList> asked;
    bool refuses = false;

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString &what, const QString &who, const QString &why, const QString &mode)
    {
        asked.append({what, who, why, mode});
        if (refuses) {
            sendErrorReply(QDBusError::AccessDenied, QStringLiteral("not allowed"));
            return {};
        }
        int ends[2] = {};
        if (::pipe2(ends, O_CLOEXEC) != 0)
            qFatal("no pipe");
        if (m_end >= 0)
            ::close(m_end);
        m_end = ends[0];
        QDBusUnixFileDescriptor lock;
        lock.giveFileDescriptor(ends[1]); // ours closes when it was sent
        return lock;
    }

private:
    int m_end = -1;
};

} // namespace kest::test
