#include "mail/OutgoingMessage.h"

#include "mail/MailApplication.h"
#include "mail/MailVocabulary.h"

namespace kest {

using namespace Qt::StringLiterals;

void ContentCharacters::insertObject(const Attachment &attachment, quint64 atIndex) const
{
    const MailFile file{attachment.fileName()};
    m_message.call(u"InsertAttachment"_s, {file.name(), QVariant::fromValue(file), atIndex});
}

QString MessageContent::get() const
{
    return m_message.read(u"Content"_s).toString();
}

OutgoingMessage OutgoingMessage::initWithProperties(MailApplication &application, const QVariantMap &properties)
{
    OutgoingMessage message = atPath(application, {});
    message.m_state->subject = properties.value(u"subject"_s).toString();
    message.m_state->content = properties.value(u"content"_s).toString();
    return message;
}

OutgoingMessage OutgoingMessage::atPath(MailApplication &application, const QString &path)
{
    OutgoingMessage message;
    message.m_state = std::make_shared<State>();
    message.m_state->object = {&application, vocabulary::outgoingMessageInterface, path};
    return message;
}

QString OutgoingMessage::subject() const
{
    return object().read(u"Subject"_s).toString();
}

void OutgoingMessage::setSubject(const QString &subject) const
{
    object().write(u"Subject"_s, subject);
}

QString OutgoingMessage::sender() const
{
    return object().read(u"Sender"_s).toString();
}

void OutgoingMessage::setSender(const QString &sender) const
{
    object().write(u"Sender"_s, sender);
}

bool OutgoingMessage::isVisible() const
{
    return object().read(u"Visible"_s).toBool();
}

void OutgoingMessage::setVisible(bool visible) const
{
    object().write(u"Visible"_s, visible);
}

void OutgoingMessage::setContent(const QString &text) const
{
    object().write(u"Content"_s, text);
}

void OutgoingMessage::send() const
{
    object().call(u"Send"_s);
}

void OutgoingMessage::deleteMessage() const
{
    object().call(u"Delete"_s);
}

void OutgoingMessageCollection::addObject(const OutgoingMessage &message) const
{
    if (!message.m_state || message.exists())
        return;
    auto &[object, subject, content] = *message.m_state;
    const MailObject application{object.application, vocabulary::applicationInterface, vocabulary::applicationPath};
    object.path = application.call(u"MakeOutgoingMessage"_s, {subject, content}).value(0).toString();
}

} // namespace kest
