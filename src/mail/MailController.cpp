#include "mail/MailController.h"

#include <QCoreApplication>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

QString localized(const char *text)
{
    return QCoreApplication::translate("kest", text);
}

} // namespace

MailController::MailController(MailTransport &transport, AlertPresenter &alertPresenter)
    : m_alertPresenter(alertPresenter)
    , m_mailApp(std::make_unique<MailApplication>(transport))
{
    m_mailApp->setDelegate(this);
}

MailController::~MailController() = default;

QVariant MailController::eventDidFail(const MailCall &, const Error &)
{
    return {};
}

void MailController::mailCreateMessageWithSubject(const QString &subject, const QString &withBody,
                                                  const std::optional<FileURL> &withAttachment, quint64 insertionIndex)
{
    const QList<FileURL> attachments = withAttachment ? QList<FileURL>{*withAttachment} : QList<FileURL>();
    mailCreateMessageWithSubject(subject, withBody, attachments, insertionIndex);
}

void MailController::mailCreateMessageWithSubject(const QString &subject, const QString &withBody,
                                                  const QList<FileURL> &withAttachments, quint64 insertionIndex)
{
    const OutgoingMessage message = madeMessage(subject, withBody);
    // Making the object sends no event: this reports the failure of an earlier one.
    if (!passesCheckPoint())
        return;
    m_mailApp->outgoingMessages().addObject(message);
    if (!passesCheckPoint())
        return;
    const std::optional<Error> insertError = insertAttachments(withAttachments, message, insertionIndex);
    show(message);
    // A failed insert is told here although later events succeeded: else the person would send a message without its
    // recording and never know.
    if (passesCheckPoint() && insertError)
        m_alertPresenter.runModal(AlertContent::fromError(*insertError));
}

std::optional<Error> MailController::show(const OutgoingMessage &message)
{
    message.setVisible(true);
    const std::optional<Error> failure = m_mailApp->lastError();
    m_mailApp->activate();
    return failure;
}

QList<Message> MailController::mailGetSelectedMessages()
{
    return m_mailApp->selection();
}

bool MailController::mailVerifyAccountExists()
{
    if (m_mailApp->accounts().count() > 0)
        return true;
    showUnableToProceed(localized(QT_TRANSLATE_NOOP(
        "kest", "No accounts were detected in Mail. You must have at least one account configured in order to create "
                "messages or reply to messages. Please ensure that you have an account configured, and try again.")));
    return false;
}

bool MailController::mailVerifySelectedMessagesExist()
{
    if (m_mailApp->selection().count() > 0)
        return true;
    showUnableToProceed(localized(QT_TRANSLATE_NOOP(
        "kest", "No messages appear to be selected in Mail. Please select a message and try again.")));
    return false;
}

OutgoingMessage MailController::madeMessage(const QString &subject, const QString &content)
{
    return m_mailApp->classForScriptingClass(u"outgoing message"_s)
        .initWithProperties({{u"subject"_s, subject}, {u"content"_s, content}})
        .value<OutgoingMessage>();
}

std::optional<Error> MailController::insertAttachments(const QList<FileURL> &files, const OutgoingMessage &message,
                                                       quint64 index)
{
    std::optional<Error> lastFailure;
    for (const FileURL &file : files) {
        const auto attachment = m_mailApp->classForScriptingClass(u"attachment"_s)
                                    .initWithProperties({{u"fileName"_s, QVariant::fromValue(file)}})
                                    .value<Attachment>();
        message.content().characters().insertObject(attachment, index);
        if (m_mailApp->lastError())
            lastFailure = m_mailApp->lastError();
    }
    return lastFailure;
}

bool MailController::passesCheckPoint()
{
    if (!m_mailApp->lastError())
        return true;
    m_alertPresenter.runModal(AlertContent::fromError(*m_mailApp->lastError()));
    return false;
}

void MailController::showUnableToProceed(const QString &informativeText)
{
    m_alertPresenter.runModal({localized(QT_TRANSLATE_NOOP("kest", "Unable to Proceed")), informativeText,
                               {localized(QT_TRANSLATE_NOOP("kest", "OK"))}, AlertContent::Style::Warning});
}

} // namespace kest
