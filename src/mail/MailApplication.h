#pragma once

#include "mail/Message.h"
#include "mail/OutgoingMessage.h"
#include "platform/Error.h"
#include "platform/MailTransport.h"

#include <QObject>
#include <QVariantMap>

#include <optional>

namespace kest {

/// A configured account that can send.
class Account
{
    Q_GADGET
    Q_PROPERTY(QString identifier MEMBER identifier)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString sender MEMBER sender)

public:
    QString identifier;
    QString name;
    QString sender; ///< Its default identity as "Name <address>".
};

/// Told of failed events.
class MailApplicationDelegate
{
public:
    virtual ~MailApplicationDelegate() = default;

    /// The event failed. The result takes the place of the event's own.
    virtual QVariant eventDidFail(const MailCall &event, const Error &withError) = 0;
};

/// A class of the mail application's vocabulary, from which objects are made.
class ScriptingClass
{
    Q_GADGET

public:
    ScriptingClass() = default;
    ScriptingClass(MailApplication &application, QString name);

    /// An OutgoingMessage, Attachment or Recipient, by the class's name. It
    /// exists only here, and no event is sent. Invalid for an unknown class.
    Q_INVOKABLE QVariant initWithProperties(const QVariantMap &properties) const;

private:
    MailApplication *m_application = nullptr;
    QString m_name;
};

/// Proxy of the mail application.
///
/// Making one needs no running mail application. Each call of an operation is
/// one event; the calling code waits for its answer. A failed event yields an
/// empty result and becomes `lastError`, until the next event succeeds. Used
/// from C++ and, through its meta-object, from the mail script. Main thread;
/// the transport outlives it.
class MailApplication : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariantList accounts READ accountsForScript)
    Q_PROPERTY(QVariantList selection READ selectionForScript)
    Q_PROPERTY(kest::OutgoingMessageCollection outgoingMessages READ outgoingMessages)
    Q_PROPERTY(QStringList features READ features)
    Q_PROPERTY(QVariant lastError READ lastErrorForScript)

public:
    explicit MailApplication(MailTransport &transport, QObject *parent = nullptr);

    /// May be null; not owned.
    void setDelegate(MailApplicationDelegate *delegate) { m_delegate = delegate; }

    /// The error of the most recent event, or nothing.
    const std::optional<Error> &lastError() const { return m_lastError; }

    QList<Account> accounts();

    /// The selected messages in the mail application's order.
    QList<Message> selection();

    /// As it was when it was last asked for.
    const QList<Message> &lastSelection() const { return m_lastSelection; }

    /// Until it is called with an empty list, the script's `selection` gives
    /// these messages, whatever is selected meanwhile, and no event is sent.
    void holdSelection(const QList<Message> &messages) { m_heldSelection = messages; }

    OutgoingMessageCollection outgoingMessages() const { return {}; }

    /// "outgoing message", "attachment", "to recipient", "cc recipient" or "bcc
    /// recipient".
    Q_INVOKABLE kest::ScriptingClass classForScriptingClass(const QString &name);

    Q_INVOKABLE void activate();

    /// Names of the whole-message calls that are offered: "NewMessage", "Reply".
    QStringList features();

    /// Feature "NewMessage". `attachments` are path texts or FileURLs.
    Q_INVOKABLE kest::OutgoingMessage newMessage(const QString &subject, const QString &content,
                                                 const QString &accountName, quint64 index,
                                                 const QVariantList &attachments);

    /// Feature "Reply". `flags` holds the booleans "replyToAll", "send" and
    /// "deleteOriginal". No message when it was sent.
    Q_INVOKABLE kest::OutgoingMessage reply(const kest::Message &original, const QString &content,
                                            const QString &accountName, const QVariantMap &flags, quint64 index,
                                            const QVariantList &attachments);

    /// Sends one event and waits; the values of its answer.
    QVariantList sendEvent(const MailCall &event);

private:
    QVariantList accountsForScript();
    QVariantList selectionForScript();
    QVariant lastErrorForScript() const;
    MailObject applicationObject();

    MailTransport &m_transport;
    MailApplicationDelegate *m_delegate = nullptr;
    std::optional<Error> m_lastError;
    QList<Message> m_lastSelection;
    QList<Message> m_heldSelection;
};

} // namespace kest
