#include "mail/Message.h"

#include "mail/MailVocabulary.h"

namespace kest {

using namespace Qt::StringLiterals;

Message::Message(MailApplication &application, const QString &path)
    : m_object{&application, vocabulary::messageInterface, path}
{
}

QString Message::replyTo() const
{
    return m_object.read(u"ReplyTo"_s).toString();
}

QString Message::subject() const
{
    return m_object.read(u"Subject"_s).toString();
}

OutgoingMessage Message::replyOpeningWindow(bool openingWindow, bool replyToAll) const
{
    const QString path = m_object.call(u"Reply"_s, {openingWindow, replyToAll}).value(0).toString();
    return path.isEmpty() ? OutgoingMessage() : OutgoingMessage::atPath(*m_object.application, path);
}

void Message::deleteMessage() const
{
    m_object.call(u"Delete"_s);
}

} // namespace kest
