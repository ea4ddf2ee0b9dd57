#pragma once

#include "platform/Error.h"
#include "platform/MailConnection.h"
#include "platform/linux/mail/ThunderbirdAddOn.h"

#include <QDBusMessage>
#include <QProcess>
#include <QTimer>

#include <functional>

namespace kest {

class MailServices;

/// The connection over the session bus. One that comes up is asked for its
/// version and its accounts, in the background, once.
class DBusMailConnection : public MailConnection
{
    Q_OBJECT

public:
    /// `services` outlives it.
    explicit DBusMailConnection(MailServices &services, ThunderbirdAddOn addOn = ThunderbirdAddOn(),
                                QObject *parent = nullptr);
    ~DBusMailConnection() override;

    const MailConnectionState &state() const override { return m_state; }
    void look() override;
    void installAddOn() override;

private:
    void servicesChanged();
    void lookAtFiles(bool mayRun);
    void ask(const QString &interface, const QString &method, const QVariantList &arguments,
             void (DBusMailConnection::*answered)(const QDBusMessage &));
    void takeProperties(const QDBusMessage &answer);
    void takeAccounts(const QDBusMessage &answer);
    void takeFailure(const Error &error);
    void setState(const MailConnectionState &state);
    void installCommandEnded();
    void endInstall(const QString &problem);

    MailServices &m_services;
    const ThunderbirdAddOn m_addOn;
    MailConnectionState m_state;
    quint64 m_round = 0; // answers to an earlier one's questions are out of date
    bool m_isLookedAt = false;
    QProcess m_installer;
    QTimer m_installLimit;
};

} // namespace kest
