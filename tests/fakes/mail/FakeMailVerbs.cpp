#include "fakes/mail/FakeMailApplication.h"

#include "platform/linux/mail/MailFileDescriptor.h"
#include "support/MailBusTypes.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace kest::test {

using namespace Qt::StringLiterals;

namespace {

QVariant pathValue(const QString &path)
{
    return QVariant::fromValue(QDBusObjectPath(path));
}

QVariant pathsValue(const QStringList &paths)
{
    QList<QDBusObjectPath> list;
    for (const QString &path : paths)
        list.append(QDBusObjectPath(path));
    return QVariant::fromValue(list);
}

QVariant accountsValue(const QList<QStringList> &accounts)
{
    QList<TextTriple> list;
    for (const QStringList &account : accounts)
        list.append({account.value(0), account.value(1), account.value(2)});
    return QVariant::fromValue(list);
}

QVariant addressesValue(const Addresses &addresses)
{
    QList<TextPair> list;
    for (const auto &[name, address] : addresses)
        list.append({name, address});
    return QVariant::fromValue(list);
}

QVariantList propertyValue(const QVariant &value)
{
    return {QVariant::fromValue(QDBusVariant(value))};
}

} // namespace

FakeMailApplication::Outcome FakeMailApplication::applicationProperty(const QString &name) const
{
    if (name == u"ProtocolVersion")
        return {propertyValue(mailbox.protocolVersion)};
    if (name == u"Features")
        return {propertyValue(mailbox.features)};
    if (name == u"Name")
        return {propertyValue(u"Fake"_s)};
    return {propertyValue(u"1.0"_s)};
}

FakeMailApplication::Outcome FakeMailApplication::forApplication(const Request &request)
{
    const QVariantList &arguments = request.arguments;
    if (request.kind == Request::Get)
        return applicationProperty(request.member);
    if (request.member == u"Accounts")
        return {{accountsValue(mailbox.accounts)}};
    if (request.member == u"Selection")
        return {{pathsValue(mailbox.selection)}};
    if (request.member == u"MakeOutgoingMessage") {
        Outgoing message;
        message.subject = arguments[0].toString();
        message.content = arguments[1].toString();
        message.sender = mailbox.senderOfAccount({});
        return {{pathValue(mailbox.add(message))}};
    }
    if (request.member == u"NewMessage")
        return newMessage(arguments);
    if (request.member == u"Reply")
        return reply(arguments);
    ++mailbox.activations;
    return {};
}

FakeMailApplication::Outcome FakeMailApplication::newMessage(const QVariantList &arguments)
{
    if (!mailbox.features.contains(u"NewMessage"_s))
        return {{}, u"Unsupported"_s, u"no whole messages here"_s};
    Outgoing message;
    message.subject = arguments[0].toString();
    message.content = arguments[1].toString();
    message.sender = mailbox.senderOfAccount(arguments[2].toString());
    message.visible = true;
    if (!attachAll(message, arguments[4], arguments[3].toULongLong()))
        return {{}, u"InvalidArgument"_s, u"a file cannot be read"_s};
    ++mailbox.activations;
    return {{pathValue(mailbox.add(message))}};
}

FakeMailApplication::Outcome FakeMailApplication::reply(const QVariantList &arguments)
{
    const QString original = arguments[0].value<QDBusObjectPath>().path();
    if (!mailbox.features.contains(u"Reply"_s))
        return {{}, u"Unsupported"_s, u"no whole replies here"_s};
    if (!mailbox.messages.contains(original))
        return {{}, u"NoSuchObject"_s, u"the message is gone"_s};
    Outgoing message = mailbox.replyTo(mailbox.messages[original], arguments[3].toBool());
    message.content.prepend(arguments[1].toString());
    if (!arguments[2].toString().isEmpty())
        message.sender = mailbox.senderOfAccount(arguments[2].toString());
    message.visible = !arguments[4].toBool();
    if (!attachAll(message, arguments[7], arguments[6].toULongLong()))
        return {{}, u"InvalidArgument"_s, u"a file cannot be read"_s};
    const QString path = mailbox.add(message);
    if (message.visible)
        ++mailbox.activations;
    else
        mailbox.sent.append(path);
    if (arguments[5].toBool()) {
        mailbox.messages.remove(original);
        mailbox.selection.removeAll(original);
        mailbox.deleted.append(original);
    }
    return {{pathValue(message.visible ? path : u"/"_s)}};
}

FakeMailApplication::Outcome FakeMailApplication::forMessage(const Request &request)
{
    const auto message = mailbox.messages.constFind(request.path);
    if (message == mailbox.messages.constEnd())
        return {{}, u"NoSuchObject"_s, u"the message is gone"_s};
    if (request.kind == Request::Get)
        return {propertyValue(request.member == u"ReplyTo" ? message->replyTo : message->subject)};
    if (request.member == u"Reply") {
        Outgoing reply = mailbox.replyTo(*message, request.arguments[1].toBool());
        reply.visible = request.arguments[0].toBool();
        return {{pathValue(mailbox.add(reply))}};
    }
    mailbox.messages.erase(message);
    mailbox.selection.removeAll(request.path);
    mailbox.deleted.append(request.path);
    return {};
}

FakeMailApplication::Outcome FakeMailApplication::forOutgoing(const Request &request)
{
    const auto found = mailbox.outgoing.find(request.path);
    if (found == mailbox.outgoing.end() || mailbox.sent.contains(request.path))
        return {{}, u"NoSuchObject"_s, u"the message is gone"_s};
    Outgoing &message = *found;
    const QVariantList &arguments = request.arguments;
    if (request.kind == Request::Get)
        return outgoingProperty(message, request.member);
    if (request.kind == Request::Set)
        return setOutgoingProperty(message, request.member, arguments.value(0));
    if (request.member == u"AddRecipient") {
        const QString kind = arguments[0].toString();
        if (kind != u"to" && kind != u"cc" && kind != u"bcc")
            return {{}, u"InvalidArgument"_s, u"no such kind of recipient"_s};
        (kind == u"to" ? message.to : kind == u"cc" ? message.cc : message.bcc)
            .append({arguments[1].toString(), arguments[2].toString()});
    } else if (request.member == u"InsertAttachment") {
        const auto bytes = contents(arguments[1].value<QDBusUnixFileDescriptor>().fileDescriptor());
        if (!bytes)
            return {{}, u"InvalidArgument"_s, u"the file cannot be read"_s};
        message.insert({arguments[0].toString(), *bytes, arguments[2].toULongLong()});
    } else if (request.member == u"Send") {
        mailbox.sent.append(request.path);
    } else {
        mailbox.outgoing.erase(found);
    }
    return {};
}

FakeMailApplication::Outcome FakeMailApplication::outgoingProperty(const Outgoing &message, const QString &name) const
{
    const QMap<QString, QVariant> values{{u"Subject"_s, message.subject},
                                         {u"Content"_s, message.content},
                                         {u"Sender"_s, message.sender},
                                         {u"Visible"_s, message.visible},
                                         {u"ToRecipients"_s, addressesValue(message.to)},
                                         {u"CcRecipients"_s, addressesValue(message.cc)},
                                         {u"BccRecipients"_s, addressesValue(message.bcc)}};
    return {propertyValue(values.value(name))};
}

FakeMailApplication::Outcome FakeMailApplication::setOutgoingProperty(Outgoing &message, const QString &name,
                                                                      const QVariant &value) const
{
    if (name == u"Subject") {
        message.subject = value.toString();
    } else if (name == u"Content") {
        message.content = value.toString();
    } else if (name == u"Sender") {
        if (!mailbox.hasIdentity(value.toString()))
            return {{}, u"InvalidArgument"_s, u"no such identity"_s};
        message.sender = value.toString();
    } else {
        if (message.visible && !value.toBool())
            return {{}, u"InvalidArgument"_s, u"a window cannot be hidden again"_s};
        message.visible = value.toBool();
    }
    return {};
}

bool FakeMailApplication::attachAll(Outgoing &message, const QVariant &files, quint64 index) const
{
    for (const NamedDescriptor &file : qdbus_cast<QList<NamedDescriptor>>(files)) {
        const auto bytes = contents(file.descriptor.fileDescriptor());
        if (!bytes)
            return false;
        message.insert({file.name, *bytes, index});
    }
    return true;
}

// From the start, wherever the descriptor stands; told about as it goes, as a slow hand-over would be.
std::optional<QByteArray> FakeMailApplication::contents(int descriptor) const
{
    constexpr qsizetype chunk = 1024 * 1024;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return std::nullopt;
    QByteArray bytes;
    QByteArray buffer(chunk, Qt::Uninitialized);
    for (;;) {
        const ssize_t count = ::pread(descriptor, buffer.data(), static_cast<size_t>(chunk), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return bytes;
        bytes.append(buffer.constData(), count);
        emitSignal(u"HandOverProgressed"_s, {static_cast<quint64>(bytes.size()), static_cast<quint64>(status.st_size)});
    }
}

} // namespace kest::test
