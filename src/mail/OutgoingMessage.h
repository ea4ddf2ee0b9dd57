#pragma once

#include "mail/Attachment.h"
#include "mail/MailObject.h"
#include "mail/Recipient.h"

#include <QObject>
#include <QVariantMap>

#include <memory>

namespace kest {

/// The characters of an outgoing message's content.
class ContentCharacters
{
    Q_GADGET

public:
    ContentCharacters() = default;
    explicit ContentCharacters(MailObject message) : m_message(std::move(message)) {}

    /// Attaches the file at this place of the content, counted in UTF-16 code
    /// units from its start. Not clamped.
    Q_INVOKABLE void insertObject(const kest::Attachment &attachment, quint64 atIndex) const;

private:
    MailObject m_message;
};

/// The rich text of an outgoing message.
class MessageContent
{
    Q_GADGET
    Q_PROPERTY(kest::ContentCharacters characters READ characters)

public:
    MessageContent() = default;
    explicit MessageContent(MailObject message) : m_message(std::move(message)) {}

    /// The text without formatting; a null text when it could not be read.
    Q_INVOKABLE QString get() const;

    ContentCharacters characters() const { return ContentCharacters(m_message); }

private:
    MailObject m_message;
};

/// A message that is being written.
///
/// A handle: copies name the same message. One made with `initWithProperties`
/// exists only here until it is added to the application's `outgoingMessages`;
/// until then calls to it send nothing. After `send` or `deleteMessage` the
/// mail application answers every call with an error. Main thread.
class OutgoingMessage
{
    Q_GADGET
    Q_PROPERTY(bool exists READ exists)
    Q_PROPERTY(QString subject READ subject WRITE setSubject)
    Q_PROPERTY(QString sender READ sender WRITE setSender)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
    Q_PROPERTY(kest::MessageContent content READ content)
    Q_PROPERTY(kest::RecipientCollection toRecipients READ toRecipients)
    Q_PROPERTY(kest::RecipientCollection ccRecipients READ ccRecipients)
    Q_PROPERTY(kest::RecipientCollection bccRecipients READ bccRecipients)

public:
    /// No message: what a failed call yields.
    OutgoingMessage() = default;

    /// Reads the properties "subject" and "content". Sends no event.
    static OutgoingMessage initWithProperties(MailApplication &application, const QVariantMap &properties);

    /// The message that the mail application has at this path; no message when
    /// the path is empty.
    static OutgoingMessage atPath(MailApplication &application, const QString &path);

    /// True when the mail application has it, as far as is known here.
    bool exists() const { return m_state && m_state->object.exists(); }

    QString subject() const;
    void setSubject(const QString &subject) const;

    /// "Name <address>"; a null text when it could not be read.
    QString sender() const;
    void setSender(const QString &sender) const;

    bool isVisible() const;

    /// True opens the message's window.
    void setVisible(bool visible) const;

    MessageContent content() const { return MessageContent(object()); }
    Q_INVOKABLE void setContent(const QString &text) const;

    RecipientCollection toRecipients() const { return {object(), RecipientKind::To}; }
    RecipientCollection ccRecipients() const { return {object(), RecipientKind::Cc}; }
    RecipientCollection bccRecipients() const { return {object(), RecipientKind::Bcc}; }

    Q_INVOKABLE void send() const;

    /// Discards it: the scripting command "delete".
    Q_INVOKABLE void deleteMessage() const;

private:
    friend class OutgoingMessageCollection;

    struct State {
        MailObject object;
        QString subject;
        QString content;
    };

    MailObject object() const { return m_state ? m_state->object : MailObject(); }

    std::shared_ptr<State> m_state;
};

/// The application's outgoing messages.
class OutgoingMessageCollection
{
    Q_GADGET

public:
    /// The message comes into being in the mail application, not yet visible.
    /// One that is there already is left alone.
    Q_INVOKABLE void addObject(const kest::OutgoingMessage &message) const;
};

} // namespace kest
