#include "platform/linux/desktop/DesktopNotice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace kest {

namespace {

constexpr int untilDismissedByTheDesktop = -1;

QDBusMessage callOf(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"), method);
}

} // namespace

void DesktopNotice::show(const QString &title, const QString &text)
{
    m_isWanted = true;
    QDBusMessage call = callOf(QStringLiteral("Notify"));
    const QVariantMap hints { { QStringLiteral("desktop-entry"), QStringLiteral("org.kest.Kest") } };
    call << QStringLiteral("Kest") << m_id << QStringLiteral("org.kest.Kest") << title << text.toHtmlEscaped()
         << QStringList() << hints << untilDismissedByTheDesktop;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<quint32> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            return;
        m_id = reply.value();
        if (!m_isWanted)
            close();
    });
}

void DesktopNotice::withdraw()
{
    m_isWanted = false;
    close();
}

void DesktopNotice::close()
{
    if (m_id == 0)
        return;
    QDBusMessage call = callOf(QStringLiteral("CloseNotification"));
    call << m_id;
    m_id = 0;
    QDBusConnection::sessionBus().send(call);
}

} // namespace kest
