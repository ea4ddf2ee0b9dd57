#include "mail/MailApplication.h"

#include "mail/MailVocabulary.h"

namespace kest {

using namespace Qt::StringLiterals;

namespace {

QVariantList mailFiles(const QVariantList &attachments)
{
    QVariantList files;
    for (const QVariant &attachment : attachments)
        files.append(QVariant::fromValue(MailFile{fileURLFromVariant(attachment)}));
    return files;
}

// A path of "/" means that there is no message any more.
OutgoingMessage outgoingMessage(MailApplication &application, const QVariantList &values)
{
    const QString path = values.value(0).toString();
    return path.size() > 1 ? OutgoingMessage::atPath(application, path) : OutgoingMessage();
}

} // namespace

ScriptingClass::ScriptingClass(MailApplication &application, QString name)
    : m_application(&application)
    , m_name(std::move(name))
{
}

QVariant ScriptingClass::initWithProperties(const QVariantMap &properties) const
{
    if (!m_application)
        return {};
    if (m_name == u"outgoing message")
        return QVariant::fromValue(OutgoingMessage::initWithProperties(*m_application, properties));
    if (m_name == u"attachment")
        return QVariant::fromValue(Attachment::initWithProperties(properties));
    if (m_name == u"to recipient" || m_name == u"cc recipient" || m_name == u"bcc recipient")
        return QVariant::fromValue(Recipient::initWithProperties(properties));
    return {};
}

MailApplication::MailApplication(MailTransport &transport, QObject *parent)
    : QObject(parent)
    , m_transport(transport)
{
}

QVariantList MailApplication::sendEvent(const MailCall &event)
{
    const MailReply reply = m_transport.call(event);
    m_lastError = reply.error;
    if (!reply.error)
        return reply.values;
    const QVariant substitute = m_delegate ? m_delegate->eventDidFail(event, *reply.error) : QVariant();
    return substitute.isValid() ? QVariantList{substitute} : QVariantList();
}

QList<Account> MailApplication::accounts()
{
    QList<Account> accounts;
    for (const QVariant &each : applicationObject().call(u"Accounts"_s).value(0).toList()) {
        const QStringList texts = each.toStringList();
        accounts.append({texts.value(0), texts.value(1), texts.value(2)});
    }
    return accounts;
}

QList<Message> MailApplication::selection()
{
    m_lastSelection.clear();
    for (const QString &path : applicationObject().call(u"Selection"_s).value(0).toStringList())
        m_lastSelection.append(Message(*this, path));
    return m_lastSelection;
}

ScriptingClass MailApplication::classForScriptingClass(const QString &name)
{
    return {*this, name};
}

void MailApplication::activate()
{
    applicationObject().call(u"Activate"_s);
}

QStringList MailApplication::features()
{
    return applicationObject().read(u"Features"_s).toStringList();
}

OutgoingMessage MailApplication::newMessage(const QString &subject, const QString &content,
                                            const QString &accountName, quint64 index, const QVariantList &attachments)
{
    return outgoingMessage(*this, applicationObject().call(u"NewMessage"_s, {subject, content, accountName, index,
                                                                            QVariant(mailFiles(attachments))}));
}

OutgoingMessage MailApplication::reply(const Message &original, const QString &content, const QString &accountName,
                                       const QVariantMap &flags, quint64 index, const QVariantList &attachments)
{
    return outgoingMessage(
        *this, applicationObject().call(
                   u"Reply"_s, {original.path(), content, accountName, flags.value(u"replyToAll"_s).toBool(),
                                flags.value(u"send"_s).toBool(), flags.value(u"deleteOriginal"_s).toBool(), index,
                                QVariant(mailFiles(attachments))}));
}

QVariantList MailApplication::accountsForScript()
{
    QVariantList list;
    for (const Account &account : accounts())
        list.append(QVariant::fromValue(account));
    return list;
}

QVariantList MailApplication::selectionForScript()
{
    if (!m_heldSelection.isEmpty())
        m_lastError.reset(); // as after an event that succeeded
    QVariantList list;
    for (const Message &message : m_heldSelection.isEmpty() ? selection() : m_heldSelection)
        list.append(QVariant::fromValue(Message(*this, message.path())));
    return list;
}

QVariant MailApplication::lastErrorForScript() const
{
    if (!m_lastError)
        return {};
    return QVariantMap{{u"domain"_s, m_lastError->domain},
                       {u"code"_s, m_lastError->code},
                       {u"description"_s, m_lastError->description},
                       {u"failureReason"_s, m_lastError->failureReason}};
}

MailObject MailApplication::applicationObject()
{
    return {this, vocabulary::applicationInterface, vocabulary::applicationPath};
}

} // namespace kest
