#include "platform/linux/desktop/SleepInhibitor.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QLoggingCategory>
#include <QVariantMap>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcSleep, "kest.sleep")

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");

// org.freedesktop.portal.Inhibit, version 3: the bits of its flags.
constexpr uint suspend = 4;
constexpr uint idle = 8;

QDBusConnection busOf(SleepInhibitor::Way way)
{
    return way == SleepInhibitor::Way::Logind ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
}

} // namespace

SleepInhibitor::SleepInhibitor(Way way, QObject *parent)
    : QObject(parent)
    , m_way(way)
{
}

SleepInhibitor::Way SleepInhibitor::wayHere()
{
    return QFile::exists(QStringLiteral("/.flatpak-info")) ? Way::Portal : Way::Logind;
}

void SleepInhibitor::hold(const QString &why)
{
    if (m_isWanted)
        return;
    m_isWanted = true;
    // An earlier question whose answer is still on its way serves as well.
    if (m_asking)
        return;
    m_asking = new QDBusPendingCallWatcher(busOf(m_way).asyncCall(inhibit(why)), this);
    connect(m_asking, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *watcher) {
        watcher->deleteLater();
        m_asking = nullptr;
        answered(*watcher);
    });
}

void SleepInhibitor::letGo()
{
    m_isWanted = false;
    m_lock = QDBusUnixFileDescriptor();
    closeRequest();
}

QDBusMessage SleepInhibitor::inhibit(const QString &why) const
{
    if (m_way == Way::Logind) {
        auto call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
        call << QStringLiteral("sleep:idle") << QStringLiteral("Kest") << why << QStringLiteral("block");
        return call;
    }
    auto call = QDBusMessage::createMethodCall(portalService, QStringLiteral("/org/freedesktop/portal/desktop"),
                                               QStringLiteral("org.freedesktop.portal.Inhibit"),
                                               QStringLiteral("Inhibit"));
    call << QString() << (suspend | idle) << QVariantMap{{QStringLiteral("reason"), why}};
    return call;
}

void SleepInhibitor::answered(QDBusPendingCallWatcher &watcher)
{
    if (watcher.isError()) {
        // Not the person's concern: the recording goes on, and most computers do not sleep under one's hands.
        if (!std::exchange(m_isMissed, true))
            qCInfo(lcSleep, "Sleep cannot be held off: %ls", qUtf16Printable(watcher.error().message()));
        m_isWanted = false;
        return;
    }
    if (m_way == Way::Logind)
        m_lock = QDBusPendingReply<QDBusUnixFileDescriptor>(watcher).value();
    else
        m_request = QDBusPendingReply<QDBusObjectPath>(watcher).value().path();
    if (!m_isWanted)
        letGo();
}

void SleepInhibitor::closeRequest()
{
    if (m_request.isEmpty())
        return;
    busOf(m_way).send(QDBusMessage::createMethodCall(portalService, std::exchange(m_request, QString()),
                                                     QStringLiteral("org.freedesktop.portal.Request"),
                                                     QStringLiteral("Close")));
}

} // namespace kest
