#pragma once

#include "mail/MailApplication.h"
#include "mail/ReplyFlags.h"
#include "platform/AlertPresenter.h"

#include <optional>

namespace kest {

/// Drives the mail application through its scripting objects: new messages, and
/// the checks that an account exists and that a message is selected.
///
/// Operations return when the mail application has done its part. Their
/// failures are shown to the person in modal alerts and never returned: after
/// each group of scripting calls `lastError` is read (a check point), and when
/// it is set the operation shows it and ends, leaving in the mail application
/// what was already done.
///
/// Owned by the main window's controller; main thread. The transport and the
/// presenter outlive it.
class MailController : public MailApplicationDelegate
{
public:
    /// Needs no running mail application.
    MailController(MailTransport &transport, AlertPresenter &alertPresenter);
    ~MailController() override;

    MailController(const MailController &) = delete;
    MailController &operator=(const MailController &) = delete;

    MailApplication *mailApp() const { return m_mailApp.get(); }

    /// Does nothing and returns an invalid value, so a failed event yields an
    /// empty result.
    QVariant eventDidFail(const MailCall &event, const Error &withError) override;

    /// Makes a new message, shows it and brings the mail application forward.
    /// `insertionIndex` counts UTF-16 code units from the start of the body.
    void mailCreateMessageWithSubject(const QString &subject, const QString &withBody,
                                      const std::optional<FileURL> &withAttachment, quint64 insertionIndex);

    /// As above. All attachments use the same index, so each later one lands in
    /// front of those before it.
    void mailCreateMessageWithSubject(const QString &subject, const QString &withBody,
                                      const QList<FileURL> &withAttachments, quint64 insertionIndex);

    /// Answers the message: a new message with the mail application's own reply's
    /// recipients, subject and sender, and the text directly in front of its
    /// quote. It is sent, or shown and brought forward.
    ///
    /// Throws, and leaves the mail application as it is at that point, when the
    /// mail application yields no text to quote (std::invalid_argument), and when
    /// there are more bcc than cc recipients (std::out_of_range).
    void mailReplyToMessage(const Message &message, const QString &appendingBodyText,
                            const std::optional<FileURL> &withAttachment, const ReplyFlags &flags,
                            quint64 insertionIndex);

    /// As above. All attachments use the same index, so each later one lands in
    /// front of those before it.
    void mailReplyToMessage(const Message &message, const QString &appendingBodyText,
                            const QList<FileURL> &withAttachments, const ReplyFlags &flags, quint64 insertionIndex);

    /// The selected messages in the mail application's order.
    QList<Message> mailGetSelectedMessages();

    /// False, after an alert, when the mail application has no account or
    /// cannot be asked.
    bool mailVerifyAccountExists();

    /// False, after an alert, when no message is selected or the mail
    /// application cannot be asked.
    bool mailVerifySelectedMessagesExist();

private:
    /// A message that exists only here until it is added.
    OutgoingMessage madeMessage(const QString &subject, const QString &content);

    /// Sends the reply, or shows it. False, after an alert, when it could not be
    /// sent or shown.
    bool deliver(const OutgoingMessage &reply, bool sending);

    /// Inserts them one after the other, whatever fails, and returns the last
    /// failure.
    std::optional<Error> insertAttachments(const QList<FileURL> &files, const OutgoingMessage &message, quint64 index);

    /// Opens its window and brings the mail application forward; returns what
    /// kept the window from opening.
    std::optional<Error> show(const OutgoingMessage &message);

    /// False, after an alert, when the most recent event failed.
    bool passesCheckPoint();
    void showUnableToProceed(const QString &informativeText);

    AlertPresenter &m_alertPresenter;
    std::unique_ptr<MailApplication> m_mailApp;
};

} // namespace kest
