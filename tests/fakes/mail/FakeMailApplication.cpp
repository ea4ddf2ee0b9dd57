#include "fakes/mail/FakeMailApplication.h"

#include "support/InterfaceDescription.h"

#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QFile>
#include <QTimer>

#include <csignal>
#include <cstdlib>

namespace kest::test {

using namespace Qt::StringLiterals;

namespace {

const QString rootPath = QStringLiteral("/org/kest/Mail1");
const QString interfacePrefix = QStringLiteral("org.kest.Mail1.");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

QString interfaceAt(const QString &path)
{
    if (path.startsWith(rootPath + u"/message/"_s))
        return u"Message"_s;
    return path.startsWith(rootPath + u"/outgoing/"_s) ? u"OutgoingMessage"_s : u"Application"_s;
}

} // namespace

FakeMailApplication::FakeMailApplication(const QDBusConnection &bus)
    : mailbox(Mailbox::fromJson({}))
    , m_bus(bus)
{
}

QString FakeMailApplication::introspect(const QString &path) const
{
    const QString xml = QString::fromUtf8(mailInterfaceXml());
    const qsizetype begin = xml.indexOf(u"<interface name=\"org.kest.Mail1."_s + interfaceAt(path) + u'"');
    const QString end = u"</interface>"_s;
    return xml.mid(begin, xml.indexOf(end, begin) + end.size() - begin);
}

void FakeMailApplication::emitSignal(const QString &name, const QVariantList &arguments) const
{
    QDBusMessage signal = QDBusMessage::createSignal(rootPath, interfacePrefix + u"Application"_s, name);
    signal.setArguments(arguments);
    m_bus.send(signal);
}

FakeMailApplication::Request FakeMailApplication::requestFrom(const QDBusMessage &message)
{
    if (message.interface() != propertiesInterface)
        return {message.path(), message.interface().mid(interfacePrefix.size()), message.member(), message.arguments()};
    const QString interface = message.arguments().value(0).toString().mid(interfacePrefix.size());
    const QString name = message.arguments().value(1).toString();
    if (message.member() == u"Set")
        return {message.path(), interface, name,
                {message.arguments().value(2).value<QDBusVariant>().variant()}, Request::Set};
    const auto kind = message.member() == u"Get" ? Request::Get : Request::GetAll;
    return {message.path(), interface, name, {}, kind};
}

bool FakeMailApplication::isWellFormed(const Request &request, const QDBusMessage &message)
{
    if (request.kind == Request::GetAll)
        return true;
    const QString kind = request.kind == Request::Method ? u"method"_s : u"property"_s;
    const auto member = mailInterface().find(interfacePrefix + request.interface + u' ' + kind + u' ' + request.member);
    if (member == mailInterface().end() || request.interface != interfaceAt(request.path))
        return false;
    if (request.kind == Request::Set) {
        const char *type = QDBusMetaType::typeToSignature(request.arguments.value(0).metaType());
        return member->access == u"readwrite" && member->out == QLatin1String(type);
    }
    return request.kind == Request::Get || member->in == message.signature();
}

// Reading the protocol version is the transport's own affair and not one of the calls that a test counts.
bool FakeMailApplication::countsAsCall(const Request &request) const
{
    return request.kind != Request::GetAll && request.member != u"ProtocolVersion";
}

bool FakeMailApplication::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (!message.interface().startsWith(interfacePrefix) && message.interface() != propertiesInterface)
        return false; // introspection is Qt's
    const Request request = requestFrom(message);
    if (!isWellFormed(request, message))
        return connection.send(message.createErrorReply(QDBusError::UnknownMethod, u"no such member"_s));
    Trouble trouble;
    if (countsAsCall(request)) {
        log.append(request.interface + u'.' + request.member);
        trouble = troubles.take(++calls);
    }
    if (trouble.action == u"hang")
        return true;
    if (trouble.action == u"vanish")
        std::_Exit(0);
    if (trouble.action == u"garble")
        return connection.send(message.createReply(trouble.detail == u"texts"
                                                       ? QVariantList{QStringList{u"non"_s, u"sense"_s}}
                                                       : QVariantList{42, u"nonsense"_s}));
    if (trouble.action == u"kill") {
        ::kill(trouble.detail.toInt(), SIGKILL);
        return true;
    }
    const Outcome outcome = trouble.action == u"fail"
        ? Outcome{{}, trouble.detail.section(u' ', 0, 0), trouble.detail.section(u' ', 1)}
        : carryOut(request);
    if (outcome.errorName.isEmpty())
        writeDown(request);
    if (trouble.action == u"vanish-unanswered")
        std::_Exit(0);
    const QDBusMessage answer = outcome.errorName.isEmpty()
        ? message.createReply(outcome.values)
        : message.createErrorReply(interfacePrefix + u"Error."_s + outcome.errorName, outcome.errorWords);
    if (trouble.action == u"delay" || trouble.action == u"progress") {
        const int delay = trouble.detail.toInt();
        for (int step = 1; step < 10 && trouble.action == u"progress"; ++step)
            QTimer::singleShot(step * delay / 10, this, [this, step] {
                emitSignal(u"HandOverProgressed"_s, {quint64(step), quint64(10)});
            });
        QTimer::singleShot(delay, this, [this, answer] { m_bus.send(answer); });
        return true;
    }
    connection.send(answer);
    if (trouble.action == u"vanish-after")
        QTimer::singleShot(50, this, [] { std::_Exit(0); }); // when the bus has the answer
    return true;
}

void FakeMailApplication::writeDown(const Request &request)
{
    QFile file(qEnvironmentVariable("KEST_FAKE_MAIL_JOURNAL"));
    if (!file.fileName().isEmpty() && file.open(QIODevice::Append | QIODevice::Unbuffered))
        file.write((request.interface + u'.' + request.member + u'\n').toUtf8());
}

FakeMailApplication::Outcome FakeMailApplication::carryOut(const Request &request)
{
    if (request.kind == Request::GetAll)
        return allProperties(request);
    if (request.interface == u"Message")
        return forMessage(request);
    return request.interface == u"Application" ? forApplication(request) : forOutgoing(request);
}

FakeMailApplication::Outcome FakeMailApplication::allProperties(const Request &request)
{
    const QString prefix = interfacePrefix + request.interface + u" property "_s;
    QVariantMap values;
    for (auto member = mailInterface().begin(); member != mailInterface().end(); ++member) {
        if (!member.key().startsWith(prefix))
            continue;
        const QString name = member.key().mid(prefix.size());
        const Outcome outcome = carryOut({request.path, request.interface, name, {}, Request::Get});
        if (!outcome.errorName.isEmpty())
            return outcome;
        values.insert(name, outcome.values.first().value<QDBusVariant>().variant());
    }
    return {{values}};
}

} // namespace kest::test
