#include "mail/MailController.h"

#include <QStringList>

#include <stdexcept>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

// Kept aligned: the same index belongs to the same recipient.
struct NamesAndAddresses {
    QStringList names;
    QStringList addresses;

    void collect(const RecipientCollection &recipients)
    {
        for (int index = 0; index < recipients.count(); ++index) {
            const Recipient recipient = recipients.objectAtIndexedSubscript(index);
            names.append(recipient.name());
            addresses.append(recipient.address());
        }
    }
};

struct CollectedRecipients {
    NamesAndAddresses to;
    NamesAndAddresses cc;
    NamesAndAddresses bcc;

    CollectedRecipients(const OutgoingMessage &reply, bool withReplyAll)
    {
        to.collect(reply.toRecipients());
        if (!withReplyAll)
            return;
        cc.collect(reply.ccRecipients());
        bcc.collect(reply.bccRecipients());
    }
};

const QString &checkedAt(const QStringList &texts, qsizetype index)
{
    if (index >= texts.size())
        throw std::out_of_range("a reply has more bcc than cc recipients");
    return texts.at(index);
}

Recipient made(MailApplication &application, const QString &className, const QString &name, const QString &address)
{
    return application.classForScriptingClass(className)
        .initWithProperties({{u"name"_s, name}, {u"address"_s, address}})
        .value<Recipient>();
}

// A cc recipient is named by its own address and a bcc recipient by the cc recipient's: both are deliberate, and so is the
// failure when the cc recipients run out.
void addRecipients(MailApplication &application, const OutgoingMessage &message, const CollectedRecipients &collected)
{
    const QStringList &to = collected.to.addresses;
    const QStringList &cc = collected.cc.addresses;
    const QStringList &bcc = collected.bcc.addresses;
    for (qsizetype index = 0; index < to.size(); ++index)
        message.toRecipients().addObject(made(application, u"to recipient"_s, collected.to.names[index], to[index]));
    for (qsizetype index = 0; index < cc.size(); ++index)
        message.ccRecipients().addObject(made(application, u"cc recipient"_s, cc[index], cc[index]));
    for (qsizetype index = 0; index < bcc.size(); ++index)
        message.bccRecipients().addObject(made(application, u"bcc recipient"_s, checkedAt(cc, index), bcc[index]));
}

// No quote means that there is no reply to build on.
QString joined(const QString &text, const QString &quote)
{
    if (quote.isNull())
        throw std::invalid_argument("the mail application made no reply");
    return text + quote;
}

} // namespace

void MailController::mailReplyToMessage(const Message &message, const QString &appendingBodyText,
                                        const std::optional<FileURL> &withAttachment, const ReplyFlags &flags,
                                        quint64 insertionIndex)
{
    const QList<FileURL> attachments = withAttachment ? QList<FileURL>{*withAttachment} : QList<FileURL>();
    mailReplyToMessage(message, appendingBodyText, attachments, flags, insertionIndex);
}

void MailController::mailReplyToMessage(const Message &message, const QString &appendingBodyText,
                                        const QList<FileURL> &withAttachments, const ReplyFlags &flags,
                                        quint64 insertionIndex)
{
    // Always to all: the flag decides only whom the new message takes over.
    const OutgoingMessage ownReply = message.replyOpeningWindow(false, true);
    const CollectedRecipients recipients(ownReply, flags.withReplyAll);
    const QString subject = ownReply.subject();
    const QString body = joined(appendingBodyText, ownReply.content().get());
    const QString sender = ownReply.sender();
    ownReply.deleteMessage();

    const OutgoingMessage reply = madeMessage(subject, body);
    if (!passesCheckPoint())
        return;
    m_mailApp->outgoingMessages().addObject(reply);
    if (!passesCheckPoint())
        return;
    addRecipients(*m_mailApp, reply, recipients);
    if (!passesCheckPoint())
        return;
    if (!sender.isEmpty())
        reply.setSender(sender);
    insertAttachments(withAttachments, reply, insertionIndex);
    if (!passesCheckPoint() || !deliver(reply, flags.sendingReply))
        return;
    if (flags.deletingOriginal)
        message.deleteMessage();
    passesCheckPoint();
}

bool MailController::deliver(const OutgoingMessage &reply, bool sending)
{
    if (sending) {
        reply.send();
        return passesCheckPoint();
    }
    const std::optional<Error> failure = show(reply);
    if (failure)
        m_alertPresenter.runModal(AlertContent::fromError(*failure));
    return !failure;
}

} // namespace kest
