#include "platform/linux/mail/MailServices.h"

#include "platform/linux/mail/DefaultMailApplication.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

const QString connectionName = QStringLiteral("kest-mail");
const QString servicePrefix = QStringLiteral("org.kest.Mail1.");
const QString ownName = QStringLiteral("org.kest.Kest.Mail");
const QString objectPath = QStringLiteral("/org/kest/Mail1");
const QString interfaceName = QStringLiteral("org.kest.Mail1.Application");

} // namespace

MailServices::MailServices(QObject *parent)
    : QObject(parent)
    , m_bus(QString())
{
}

MailServices::~MailServices()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

bool MailServices::connectToBus()
{
    if (m_bus.isConnected())
        return true;
    m_watcher.reset();
    m_isReady = false;
    m_names.clear();
    choosePreferred();
    QDBusConnection::disconnectFromBus(connectionName);
    m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!m_bus.isConnected())
        return false;
    m_watcher = std::make_unique<QDBusServiceWatcher>(u"org.kest.Mail1*"_s, m_bus);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &MailServices::updateOwner);
    takeOwnName();
    learnNames();
    return true;
}

/// Mail applications may take requests from the owner of this name alone. Whoever has it and does not let go is
/// waited for. Every later message of this connection comes after it, so there is no answer to wait for.
void MailServices::takeOwnName()
{
    constexpr uint replaceExisting = 2; // D-Bus Specification, RequestName
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                               u"org.freedesktop.DBus"_s, u"RequestName"_s);
    call << ownName << replaceExisting;
    m_bus.asyncCall(call);
}

void MailServices::learnNames()
{
    const auto call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                     u"org.freedesktop.DBus"_s, u"ListNames"_s);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), m_watcher.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isReady = true;
        for (const QString &name : QDBusPendingReply<QStringList>(*watcher).value()) {
            if (name.startsWith(servicePrefix))
                updateOwner(name, {}, name);
        }
        Q_EMIT changed();
    });
}

void MailServices::updateOwner(const QString &service, const QString &oldOwner, const QString &newOwner)
{
    if (!service.startsWith(servicePrefix))
        return;
    m_names.removeAll(service);
    if (!newOwner.isEmpty())
        m_names.append(service);
    std::sort(m_names.begin(), m_names.end());
    const bool wasReplaced = service == m_preferred && !oldOwner.isEmpty() && !newOwner.isEmpty();
    choosePreferred();
    if (wasReplaced)
        Q_EMIT changed();
}

void MailServices::choosePreferred()
{
    QString preferred = m_names.value(0);
    if (m_names.size() > 1) {
        const auto application = defaultMailApplication();
        for (const QString &name : std::as_const(m_names)) {
            if (application && application->serves(name))
                preferred = name;
        }
    }
    if (preferred == m_preferred)
        return;
    if (!m_preferred.isEmpty())
        listen(m_preferred, false);
    m_preferred = preferred;
    if (!preferred.isEmpty())
        listen(preferred, true);
    Q_EMIT changed();
    if (preferred.isEmpty())
        Q_EMIT vanished();
    else
        Q_EMIT appeared(preferred);
}

void MailServices::listen(const QString &service, bool on)
{
    const auto each = [&](const QString &signal, const char *slot) {
        if (on)
            m_bus.connect(service, objectPath, interfaceName, signal, this, slot);
        else
            m_bus.disconnect(service, objectPath, interfaceName, signal, this, slot);
    };
    each(u"FocusGained"_s, SIGNAL(focusGained()));
    each(u"FocusLost"_s, SIGNAL(focusLost()));
    each(u"HandOverProgressed"_s, SLOT(passOnProgress(quint64, quint64)));
}

void MailServices::passOnProgress(quint64 done, quint64 total)
{
    Q_EMIT handOverProgressed(static_cast<qint64>(done), static_cast<qint64>(total));
}

} // namespace kest
