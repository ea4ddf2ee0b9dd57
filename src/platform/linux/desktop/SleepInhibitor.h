#pragma once

#include "platform/SleepHold.h"

#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QObject>

class QDBusPendingCallWatcher;

namespace kest {

/// Holds sleep off by an inhibitor lock of logind (org.freedesktop.login1,
/// Inhibit), or, in a sandbox that logind cannot be reached from, by the
/// desktop portal (org.freedesktop.portal.Inhibit).
///
/// logind's lock is a descriptor, the portal's a request that ends with our
/// connection: both are let go when the process dies.
class SleepInhibitor : public QObject, public SleepHold
{
    Q_OBJECT

public:
    enum class Way { Logind, Portal };

    explicit SleepInhibitor(Way way = wayHere(), QObject *parent = nullptr);

    void hold(const QString &why) override;
    void letGo() override;

    /// The portal inside of Flatpak, which leaves a file in every sandbox
    /// (flatpak-metadata(5)); else logind.
    static Way wayHere();

private:
    QDBusMessage inhibit(const QString &why) const;
    void answered(QDBusPendingCallWatcher &watcher);
    void closeRequest();

    const Way m_way;
    QDBusPendingCallWatcher *m_asking = nullptr; // null while no answer is waited for
    bool m_isWanted = false;
    bool m_isMissed = false;        // it was logged that it cannot be had
    QDBusUnixFileDescriptor m_lock; // logind's
    QString m_request;              // the portal's; empty when none is held
};

} // namespace kest
