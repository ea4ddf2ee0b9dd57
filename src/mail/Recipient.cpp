#include "mail/Recipient.h"

#include <stdexcept>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

QString propertyName(RecipientKind kind)
{
    switch (kind) {
    case RecipientKind::To:
        return u"ToRecipients"_s;
    case RecipientKind::Cc:
        return u"CcRecipients"_s;
    case RecipientKind::Bcc:
        break;
    }
    return u"BccRecipients"_s;
}

QString kindName(RecipientKind kind)
{
    switch (kind) {
    case RecipientKind::To:
        return u"to"_s;
    case RecipientKind::Cc:
        return u"cc"_s;
    case RecipientKind::Bcc:
        break;
    }
    return u"bcc"_s;
}

} // namespace

Recipient Recipient::initWithProperties(const QVariantMap &properties)
{
    return {properties.value(u"name"_s).toString(), properties.value(u"address"_s).toString()};
}

RecipientCollection::RecipientCollection(MailObject message, RecipientKind kind)
    : m_message(std::move(message))
    , m_kind(kind)
    , m_fetched(std::make_shared<std::optional<QList<Recipient>>>())
{
}

int RecipientCollection::count() const
{
    return static_cast<int>(fetched().size());
}

Recipient RecipientCollection::objectAtIndexedSubscript(int index) const
{
    if (index < 0 || index >= count())
        throw std::out_of_range("no recipient at this index");
    return fetched().at(index);
}

void RecipientCollection::addObject(const Recipient &recipient) const
{
    m_message.call(u"AddRecipient"_s, {kindName(m_kind), recipient.name(), recipient.address()});
}

const QList<Recipient> &RecipientCollection::fetched() const
{
    static const QList<Recipient> none;
    if (!m_fetched)
        return none;
    if (!*m_fetched) {
        m_fetched->emplace();
        for (const QVariant &pair : m_message.read(propertyName(m_kind)).toList()) {
            const QStringList texts = pair.toStringList();
            m_fetched->value().append({texts.value(0), texts.value(1)});
        }
    }
    return m_fetched->value();
}

} // namespace kest
