#include "Peer.h"

#include <QDBusConnectionInterface>

namespace kest {

namespace {

const QString peerName = QStringLiteral("org.kest.Kest.Mail");

} // namespace

Peer::Peer(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_watcher(peerName, bus)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { m_owner = owner; });
    m_owner = bus.interface()->serviceOwner(peerName).value();
}

} // namespace kest
