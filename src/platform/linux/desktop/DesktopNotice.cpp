#include "platform/linux/desktop/DesktopNotice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

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
    m_title = title;
    m_text = text;
    m_hasChanged = m_isSent;
    // A second one before the first has its number would stand beside it.
    if (!m_isSent)
        send();
}

void DesktopNotice::send()
{
    QDBusMessage call = callOf(QStringLiteral("Notify"));
    const QVariantMap hints { { QStringLiteral("desktop-entry"), QStringLiteral("org.kest.Kest") } };
    call << QStringLiteral("Kest") << m_id << QStringLiteral("org.kest.Kest") << m_title << m_text.toHtmlEscaped()
         << QStringList() << hints << untilDismissedByTheDesktop;
    m_isSent = true;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<quint32> reply = *watcher;
        watcher->deleteLater();
        m_isSent = false;
        const bool changed = std::exchange(m_hasChanged, false);
        if (!reply.isError())
            m_id = reply.value();
        if (!m_isWanted)
            close();
        else if (changed)
            send();
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
