#pragma once

#include "Contract.h"
#include "Peer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QJsonValue>

#include <optional>

namespace kest {

class AddonLink;
struct AddonAnswer;

/// Serves org.kest.Mail1 on the session bus: checks every call against the
/// contract, passes it to the add-on, and answers when the add-on does. Never
/// waits. Knows no verb by name, save for the application's own properties.
/// Anybody on the bus may ask; only Kest (see Peer) may have something done.
class MailService : public QDBusVirtualObject
{
    Q_OBJECT

public:
    MailService(Contract contract, AddonLink &addon, QDBusConnection bus);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private Q_SLOTS:
    void focusChanged(bool focused);
    void handOverProgressed(qint64 done, qint64 total);

private:
    struct Request;

    bool handleProperties(const QDBusMessage &message, const ContractInterface &interface);
    bool refuse(const QDBusMessage &message);
    bool readAll(const QDBusMessage &message, const ContractInterface &interface);
    QVariant ownProperty(const QString &name) const;
    void pass(QDBusMessage message, Request request, const ContractMember &member, bool asVariant);
    std::optional<QJsonValue> convert(const QDBusMessage &message, Request &request, const ContractMember &member,
                                      QList<QDBusUnixFileDescriptor> &files);
    void reply(const QDBusMessage &message, const AddonAnswer &answer, const QString &signature, bool asVariant);
    bool fail(const QDBusMessage &message, const QString &name, const QString &words);
    void broadcast(const QString &signal, const QVariantList &arguments);

    Contract m_contract;
    AddonLink &m_addon;
    QDBusConnection m_bus;
    Peer m_peer;
    qsizetype m_openTexts = 0; ///< UTF-16 code units in requests without an answer: the bus library keeps them.
};

} // namespace kest
