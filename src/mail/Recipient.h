#pragma once

#include "mail/MailObject.h"

#include <QList>
#include <QObject>

#include <memory>
#include <optional>

namespace kest {

enum class RecipientKind { To, Cc, Bcc };

/// Who a message goes to: an object of the scripting class "to recipient", "cc
/// recipient" or "bcc recipient". A value without connection to the mail
/// application.
class Recipient
{
    Q_GADGET
    Q_PROPERTY(QString name READ name)
    Q_PROPERTY(QString address READ address)

public:
    Recipient() = default;
    Recipient(QString name, QString address) : m_name(std::move(name)), m_address(std::move(address)) {}

    /// Reads the properties "name" and "address".
    static Recipient initWithProperties(const QVariantMap &properties);

    /// Display name; may be empty.
    QString name() const { return m_name; }
    QString address() const { return m_address; }

private:
    QString m_name;
    QString m_address;
};

/// The recipients of one kind of an outgoing message. They are fetched, in one
/// call, when they are first asked for, and then stay as they were.
class RecipientCollection
{
    Q_GADGET
    Q_PROPERTY(int count READ count)

public:
    RecipientCollection() = default;
    RecipientCollection(MailObject message, RecipientKind kind);

    /// 0 also when the mail application could not be asked.
    int count() const;

    /// Throws std::out_of_range for an index that is not below `count()`.
    Q_INVOKABLE kest::Recipient objectAtIndexedSubscript(int index) const;

    /// Adds it in the mail application; the collection read here stays as it is.
    Q_INVOKABLE void addObject(const kest::Recipient &recipient) const;

private:
    const QList<Recipient> &fetched() const;

    MailObject m_message;
    RecipientKind m_kind = RecipientKind::To;
    std::shared_ptr<std::optional<QList<Recipient>>> m_fetched;
};

} // namespace kest
