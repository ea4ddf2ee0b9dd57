#include "MailService.h"

#include "AddonLink.h"

#include <QDBusMetaType>
#include <QDBusVariant>

#include <algorithm>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 busProtocolVersion = 1;
// The longest that Kest sends, a whole text file of 4 MiB, and what goes with it.
constexpr qsizetype longestTexts = 4 * 1024 * 1024 + 64 * 1024;
constexpr qsizetype mostFiles = 100;
constexpr QLatin1StringView propertiesInterface {"org.freedesktop.DBus.Properties"};
constexpr QLatin1StringView errorPrefix {"org.kest.Mail1.Error."};
constexpr qsizetype longestErrorName = 100; // the bus takes 255 with the prefix

int deadlineFor(const ContractMember &member)
{
    const bool maySend = member.name == "Send"_L1 || member.name == "Reply"_L1;
    return maySend ? AddonLink::sendDeadline : AddonLink::ordinaryDeadline;
}

/// In UTF-16 code units, all texts of the request together.
qsizetype lengthOf(const QVariantList &arguments)
{
    qsizetype length = 0;
    for (const QVariant &argument : arguments) {
        const bool isVariant = argument.metaType() == QMetaType::fromType<QDBusVariant>();
        length += (isVariant ? argument.value<QDBusVariant>().variant() : argument).toString().size();
    }
    return length;
}

/// What org.freedesktop.DBus.Properties takes by that name; empty when it has no such member.
QString signatureOfPropertyCall(const QString &member)
{
    if (member == "Get"_L1)
        return u"ss"_s;
    if (member == "Set"_L1)
        return u"ssv"_s;
    return member == "GetAll"_L1 ? u"s"_s : QString();
}

/// The D-Bus signature of what a variant from the bus holds.
QString signatureOf(const QVariant &variant)
{
    const QVariant inner = variant.value<QDBusVariant>().variant();
    return QString::fromLatin1(QDBusMetaType::typeToSignature(inner.metaType()));
}

} // namespace

struct MailService::Request {
    QString kind; ///< "call", "get" or "set".
    const ContractInterface &interface;
    QVariantList arguments;
};

MailService::MailService(Contract contract, AddonLink &addon, QDBusConnection bus)
    : m_contract(std::move(contract))
    , m_addon(addon)
    , m_bus(std::move(bus))
    , m_peer(m_bus)
{
    registerBusTypes();
    connect(&addon, &AddonLink::focusChanged, this, &MailService::focusChanged);
    connect(&addon, &AddonLink::handOverProgressed, this, &MailService::handOverProgressed);
}

QString MailService::introspect(const QString &path) const
{
    const ContractInterface *interface = m_contract.forPath(path);
    return interface ? interface->xml : QString();
}

bool MailService::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    const ContractInterface *interface = m_contract.forPath(message.path());
    if (!interface || message.type() != QDBusMessage::MethodCallMessage)
        return false;
    if (message.interface() == propertiesInterface)
        return handleProperties(message, *interface);
    const bool ours = message.interface().isEmpty() || message.interface() == interfacePrefix + interface->name;
    if (!ours)
        return false;
    const ContractMember *method = interface->method(message.member());
    if (!method)
        return m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"There is no such method."_s));
    if (message.signature() != method->inputSignature)
        return fail(message, u"InvalidArgument"_s, u"%1 takes (%2)."_s.arg(method->name, method->inputSignature));
    if (!method->onlyAsks() && !m_peer.is(message.service()))
        return refuse(message);
    pass(message, {u"call"_s, *interface, message.arguments()}, *method, false);
    return true;
}

bool MailService::handleProperties(const QDBusMessage &message, const ContractInterface &interface)
{
    const QString signature = signatureOfPropertyCall(message.member());
    if (signature.isEmpty())
        return m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"There is no such method."_s));
    if (message.signature() != signature)
        return fail(message, u"InvalidArgument"_s, u"%1 takes (%2)."_s.arg(message.member(), signature));
    const QVariantList arguments = message.arguments();
    const bool known = arguments.value(0).toString() == interfacePrefix + interface.name;
    if (known && message.member() == "GetAll"_L1)
        return readAll(message, interface);
    const ContractMember *property = known ? interface.property(arguments.value(1).toString()) : nullptr;
    if (!property)
        return fail(message, u"InvalidArgument"_s, u"There is no such property."_s);
    const bool write = message.member() == "Set"_L1;
    if (write && !property->writable)
        return fail(message, u"InvalidArgument"_s, u"%1 cannot be written."_s.arg(property->name));
    if (write && signatureOf(arguments.value(2)) != property->outputSignature)
        return fail(message, u"InvalidArgument"_s, u"%1 takes %2."_s.arg(property->name, property->outputSignature));
    if (write && !m_peer.is(message.service()))
        return refuse(message);
    if (const QVariant own = ownProperty(property->name); own.isValid()) {
        m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(own))));
        return true;
    }
    pass(message, {write ? u"set"_s : u"get"_s, interface, arguments.mid(2)}, *property, !write);
    return true;
}

bool MailService::refuse(const QDBusMessage &message)
{
    return m_bus.send(message.createErrorReply(
        QDBusError::AccessDenied, u"Only Kest may do this, and the caller is not the Kest that runs."_s));
}

/// Only the application's properties are all known here; of the other objects each is asked for by itself.
bool MailService::readAll(const QDBusMessage &message, const ContractInterface &interface)
{
    QVariantMap values;
    for (const ContractMember &property : interface.properties) {
        const QVariant own = ownProperty(property.name);
        if (!own.isValid())
            return fail(message, u"Unsupported"_s, u"Read the properties of messages one by one."_s);
        values.insert(property.name, own);
    }
    m_bus.send(message.createReply(values));
    return true;
}

QVariant MailService::ownProperty(const QString &name) const
{
    if (name == "ProtocolVersion"_L1)
        return busProtocolVersion;
    if (name == "Version"_L1)
        return QStringLiteral(KEST_VERSION);
    if (name == "Features"_L1)
        return QStringList {u"NewMessage"_s, u"Reply"_s};
    if (name == "Name"_L1)
        return m_addon.hello().applicationName;
    if (name == "ApplicationVersion"_L1)
        return m_addon.hello().applicationVersion;
    return {};
}

void MailService::pass(QDBusMessage message, Request request, const ContractMember &member, bool asVariant)
{
    if (const QString words = m_addon.mismatch(); !words.isEmpty()) {
        fail(message, u"Mismatch"_s, words);
        return;
    }
    if (!Contract::canBeObject(message.path())) {
        fail(message, u"NoSuchObject"_s, u"There is no such message."_s);
        return;
    }
    const qsizetype length = lengthOf(request.arguments);
    if (length > longestTexts) {
        fail(message, u"InvalidArgument"_s, u"The text is too long for a message."_s);
        return;
    }
    if (m_openTexts + length > longestTexts) {
        fail(message, u"Failed"_s, u"%1 is busy with other requests."_s.arg(m_addon.hello().applicationName));
        return;
    }
    message.setArguments({}); // what waits for an answer keeps no second copy
    QList<QDBusUnixFileDescriptor> files;
    const auto arguments = convert(message, request, member, files);
    if (!arguments)
        return;
    const QJsonObject out {{u"path"_s, message.path()}, {u"interface"_s, request.interface.name},
                           {u"kind"_s, request.kind}, {u"member"_s, member.name}, {u"arguments"_s, *arguments}};
    const QString signature = request.kind == "set"_L1 ? QString() : member.outputSignature;
    m_openTexts += length;
    const auto answered = [this, message, signature, asVariant, length](const AddonAnswer &answer) {
        m_openTexts -= length;
        reply(message, answer, signature, asVariant);
    };
    const auto asker = m_peer.is(message.service()) ? AddonLink::Asker::Kest : AddonLink::Asker::Anybody;
    m_addon.request(out, files, deadlineFor(member), answered, asker);
}

/// One argument after the other, each given up when it is converted: texts are long, and memory is counted. Nothing
/// when there are too many files; then the caller has been told.
std::optional<QJsonValue> MailService::convert(const QDBusMessage &message, Request &request,
                                               const ContractMember &member, QList<QDBusUnixFileDescriptor> &files)
{
    QJsonObject named;
    QJsonValue only(QJsonValue::Undefined);
    for (qsizetype index = 0; !request.arguments.isEmpty(); ++index) {
        const QJsonValue value = toJson({request.arguments.takeFirst()}, files, m_addon.fileBase()).first();
        if (request.kind == "call"_L1)
            named.insert(member.inputNames[index], value);
        else
            only = value;
    }
    if (files.size() <= mostFiles)
        return request.kind == "call"_L1 ? QJsonValue(named) : only;
    fail(message, u"InvalidArgument"_s, u"A message takes at most %1 files at once."_s.arg(mostFiles));
    return std::nullopt;
}

void MailService::reply(const QDBusMessage &message, const AddonAnswer &answer, const QString &signature,
                        bool asVariant)
{
    if (!answer.errorName.isEmpty()) {
        fail(message, answer.errorName, answer.errorWords);
        return;
    }
    if (signature.isEmpty()) {
        m_bus.send(message.createReply());
        return;
    }
    const QVariant value = fromJson(answer.value, signature);
    if (!value.isValid()) {
        fail(message, u"Failed"_s, u"The add-on gave an answer that makes no sense."_s);
        return;
    }
    m_bus.send(message.createReply(asVariant ? QVariant::fromValue(QDBusVariant(value)) : value));
}

bool MailService::fail(const QDBusMessage &message, const QString &name, const QString &words)
{
    // An error with an impossible name could not be sent, and the caller would wait in vain.
    const bool isWord = std::ranges::all_of(name, [](QChar unit) { return unit.isLetter() && unit.unicode() < 0x80; });
    const bool isName = isWord && !name.isEmpty() && name.size() <= longestErrorName;
    m_bus.send(message.createErrorReply(errorPrefix + (isName ? name : u"Failed"_s), words));
    return true;
}

void MailService::focusChanged(bool focused)
{
    broadcast(focused ? u"FocusGained"_s : u"FocusLost"_s, {});
}

void MailService::handOverProgressed(qint64 done, qint64 total)
{
    broadcast(u"HandOverProgressed"_s, {QVariant::fromValue<quint64>(done), QVariant::fromValue<quint64>(total)});
}

void MailService::broadcast(const QString &signal, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createSignal(rootPath, interfacePrefix + "Application"_L1, signal);
    message.setArguments(arguments);
    m_bus.send(message);
}

} // namespace kest
