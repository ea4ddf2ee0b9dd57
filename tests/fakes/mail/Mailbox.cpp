#include "fakes/mail/Mailbox.h"

#include <QCryptographicHash>
#include <QJsonArray>

#include <algorithm>

namespace kest::test {

using namespace Qt::StringLiterals;

namespace {

Addresses addresses(const QJsonValue &list)
{
    Addresses all;
    for (const QJsonValue &pair : list.toArray())
        all.append({pair[0].toString(), pair[1].toString()});
    return all;
}

QJsonArray asJson(const Addresses &all)
{
    QJsonArray list;
    for (const auto &[name, address] : all)
        list.append(QJsonArray{name, address});
    return list;
}

QJsonObject asJson(const Attached &attachment)
{
    constexpr qsizetype small = 1024 * 1024;
    const QByteArray hash = QCryptographicHash::hash(attachment.bytes, QCryptographicHash::Sha256);
    QJsonObject object{{u"name"_s, attachment.name},
                       {u"index"_s, QString::number(attachment.index)},
                       {u"size"_s, attachment.bytes.size()},
                       {u"sha256"_s, QString::fromLatin1(hash.toHex())}};
    if (attachment.bytes.size() <= small)
        object.insert(u"base64"_s, QString::fromLatin1(attachment.bytes.toBase64()));
    return object;
}

QJsonObject asJson(const Outgoing &message)
{
    QJsonArray attachments;
    for (const Attached &each : message.attachments)
        attachments.append(asJson(each));
    return {{u"subject"_s, message.subject}, {u"content"_s, message.content}, {u"sender"_s, message.sender},
            {u"visible"_s, message.visible}, {u"to"_s, asJson(message.to)},   {u"cc"_s, asJson(message.cc)},
            {u"bcc"_s, asJson(message.bcc)}, {u"attachments"_s, attachments}};
}

Received received(const QJsonObject &object)
{
    return {object[u"subject"].toString(u"Lunch"_s),
            object[u"replyTo"].toString(u"Ann <ann@example.org>"_s),
            object[u"quote"].toString(u"\n> Lunch?\n"_s),
            object[u"replySender"].toString(u"Me <me@example.org>"_s),
            object.contains(u"to") ? addresses(object[u"to"]) : Addresses{{u"Ann"_s, u"ann@example.org"_s}},
            addresses(object[u"cc"]),
            addresses(object[u"bcc"])};
}

QStringList texts(const QJsonValue &list)
{
    QStringList all;
    for (const QJsonValue &text : list.toArray())
        all.append(text.toString());
    return all;
}

} // namespace

void Outgoing::insert(Attached attachment)
{
    const auto placeOf = [&](const Attached &each) { return std::min(each.index, static_cast<quint64>(content.size())); };
    const auto place = std::find_if(attachments.begin(), attachments.end(),
                                    [&](const Attached &each) { return placeOf(each) >= placeOf(attachment); });
    attachments.insert(place, attachment);
}

Mailbox Mailbox::fromJson(const QJsonObject &description)
{
    Mailbox box;
    box.accounts = {{u"account1"_s, u"Home"_s, u"Me <me@example.org>"_s}};
    box.features = description.contains(u"features") ? texts(description[u"features"])
                                                     : QStringList{u"NewMessage"_s, u"Reply"_s};
    box.protocolVersion = static_cast<uint>(description[u"protocolVersion"].toInt(1));
    if (description.contains(u"accounts")) {
        box.accounts.clear();
        for (const QJsonValue &account : description[u"accounts"].toArray())
            box.accounts.append(texts(account));
    }
    const QJsonArray described =
        description.contains(u"messages") ? description[u"messages"].toArray() : QJsonArray{QJsonObject()};
    for (const QJsonValue &message : described) {
        const QString path = u"/org/kest/Mail1/message/"_s + QString::number(box.messages.size() + 1);
        box.messages.insert(path, received(message.toObject()));
        if (message[u"selected"].toBool(true))
            box.selection.append(path);
    }
    return box;
}

QJsonObject Mailbox::toJson() const
{
    QJsonObject written;
    for (auto each = outgoing.begin(); each != outgoing.end(); ++each)
        written.insert(each.key(), asJson(each.value()));
    return {{u"outgoing"_s, written},
            {u"sent"_s, QJsonArray::fromStringList(sent)},
            {u"deleted"_s, QJsonArray::fromStringList(deleted)},
            {u"activations"_s, activations}};
}

QString Mailbox::add(const Outgoing &message)
{
    const QString path = u"/org/kest/Mail1/outgoing/"_s + QString::number(++made);
    outgoing.insert(path, message);
    return path;
}

Outgoing Mailbox::replyTo(const Received &message, bool replyToAll) const
{
    Outgoing reply;
    reply.subject = u"Re: "_s + message.subject;
    reply.content = message.quote;
    reply.sender = message.replySender;
    reply.to = replyToAll ? message.to : message.to.first(std::min<qsizetype>(message.to.size(), 1));
    if (replyToAll) {
        reply.cc = message.cc;
        reply.bcc = message.bcc;
    }
    return reply;
}

bool Mailbox::hasIdentity(const QString &sender) const
{
    const auto isSender = [&](const QStringList &account) { return account.value(2) == sender; };
    const auto isReplySender = [&](const Received &message) { return message.replySender == sender; };
    return std::any_of(accounts.begin(), accounts.end(), isSender)
        || std::any_of(messages.begin(), messages.end(), isReplySender);
}

QString Mailbox::senderOfAccount(const QString &name) const
{
    for (const QStringList &account : accounts) {
        if (account.value(1) == name)
            return account.value(2);
    }
    return accounts.isEmpty() ? QString() : accounts.first().value(2);
}

} // namespace kest::test
