#pragma once

#include "platform/FileDescriptor.h"

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

#include <chrono>

namespace kest {

/// Lets one Kest run for a person: who starts it again brings the window of the
/// running one to the front.
///
/// The first one holds a lock in XDG_RUNTIME_DIR and offers
/// org.freedesktop.Application (Desktop Entry Specification, "D-Bus
/// Activation") as org.kest.Kest. Without a runtime folder everyone is the
/// first. Main thread.
class SingleInstance : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Takes the lock, when it is free.
    explicit SingleInstance(QObject *parent = nullptr);

    bool isFirst() const { return m_isFirst; }

    /// Asks the first one to come to the front. False when it did not answer
    /// within `limit`, or ended meanwhile, which makes this one the first, or
    /// there is no session bus; then this one had better run itself. One that
    /// has withdrawn is waited for until `endLimit`. Needs an application
    /// object. Waits.
    bool handOver(std::chrono::milliseconds limit, std::chrono::milliseconds endLimit);

    /// Begins to take such wishes. The first one calls it when its window
    /// stands; before that they wait. One that runs although it is not the first
    /// takes the first one's place once that has ended.
    void serve();

    /// Takes no more of them: the end has begun, and who starts the program now
    /// is to run itself after it.
    void withdraw();

public Q_SLOTS:
    /// The interface. Whoever is on the bus can do no more with it than show the window.
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    Q_SCRIPTABLE void ActivateAction(const QString &name, const QVariantList &parameter,
                                     const QVariantMap &platformData);

Q_SIGNALS:
    /// The person started the program again.
    void activated();

private:
    void lock();
    bool isEnding() const;

    FileDescriptor m_lock; // what is in it: see withdraw
    bool m_isFirst = false;
    bool m_isExported = false;
    bool m_withdrawn = false;
};

} // namespace kest
