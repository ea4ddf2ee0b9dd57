#pragma once

#include "mail/MailObject.h"
#include "mail/OutgoingMessage.h"

#include <QObject>

namespace kest {

/// A message that lies in a mail folder; an element of the selection.
///
/// A handle: copies name the same message. Main thread.
class Message
{
    Q_GADGET
    Q_PROPERTY(QString replyTo READ replyTo)
    Q_PROPERTY(QString subject READ subject)

public:
    /// No message.
    Message() = default;
    Message(MailApplication &application, const QString &path);

    /// The object path, which the mail application made up.
    QString path() const { return m_object.path; }

    /// "Name <address>" of where an answer goes; a null text when it could not
    /// be read.
    QString replyTo() const;

    QString subject() const;

    /// The mail application's own reply; no message when the call failed.
    Q_INVOKABLE kest::OutgoingMessage replyOpeningWindow(bool openingWindow, bool replyToAll) const;

    /// The scripting command "delete": to the mail application's trash.
    Q_INVOKABLE void deleteMessage() const;

private:
    MailObject m_object;
};

} // namespace kest
