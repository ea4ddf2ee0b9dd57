#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

namespace kest {

/// Knows which connection on the bus is Kest: the one that owns the name
/// org.kest.Kest.Mail. Only from it the host takes requests that do something.
///
/// The bus tells of a change of owner before it passes on anything that the new
/// owner says afterwards, so a request never comes too early.
class Peer : public QObject
{
    Q_OBJECT

public:
    /// Asks the bus who it is now; waits for that one answer.
    explicit Peer(const QDBusConnection &bus, QObject *parent = nullptr);

    /// True when the connection with this unique name is Kest.
    bool is(const QString &uniqueName) const { return !m_owner.isEmpty() && m_owner == uniqueName; }

private:
    QDBusServiceWatcher m_watcher;
    QString m_owner; ///< A unique name; empty while Kest is not there.
};

} // namespace kest
