#include "platform/linux/mail/MailSignatures.h"

#include "platform/linux/mail/MailErrors.h"
#include "platform/linux/mail/MailFileDescriptor.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

namespace kest {

namespace {

constexpr char application[] = "org.kest.Mail1.Application";
constexpr char message[] = "org.kest.Mail1.Message";
constexpr char outgoing[] = "org.kest.Mail1.OutgoingMessage";

QString busText(const QString &text)
{
    // The bus ends a text at U+0000.
    QString whole = text;
    return whole.replace(QChar(), QChar::ReplacementCharacter);
}

std::optional<QVariant> busFiles(const QVariantList &files, Error *error)
{
    QList<NamedDescriptor> opened;
    for (const QVariant &file : files) {
        const auto descriptor = openedForHandOver(file.value<MailFile>().file, error);
        if (!descriptor)
            return std::nullopt;
        opened.append({file.value<MailFile>().name(), *descriptor});
    }
    return QVariant::fromValue(opened);
}

std::optional<QVariant> busArgument(const QByteArray &type, const QVariant &value, Error *error)
{
    if (type == "s")
        return QVariant(busText(value.toString()));
    if (type == "o")
        return QVariant::fromValue(QDBusObjectPath(value.toString()));
    if (type == "t")
        return QVariant(value.toULongLong());
    if (type == "b")
        return QVariant(value.toBool());
    if (type == "a(sh)")
        return busFiles(value.toList(), error);
    const auto descriptor = openedForHandOver(value.value<MailFile>().file, error);
    return descriptor ? std::optional(QVariant::fromValue(*descriptor)) : std::nullopt;
}

// The single complete types of a signature: "sa(sh)" makes "s" and "a(sh)".
QList<QByteArray> completeTypes(const QByteArray &signature)
{
    QList<QByteArray> types;
    for (qsizetype at = 0; at < signature.size();) {
        qsizetype end = at;
        while (signature[end] == 'a')
            ++end;
        end = signature[end] == '(' ? signature.indexOf(')', end) + 1 : end + 1;
        types.append(signature.mid(at, end - at));
        at = end;
    }
    return types;
}

QVariant structures(const QDBusArgument &argument)
{
    QVariantList list;
    argument.beginArray();
    while (!argument.atEnd()) {
        QStringList texts;
        argument.beginStructure();
        while (!argument.atEnd())
            texts.append(argument.asVariant().toString());
        argument.endStructure();
        list.append(QVariant(texts));
    }
    argument.endArray();
    return list;
}

QVariant objectPaths(const QVariant &value)
{
    QStringList paths;
    for (const QDBusObjectPath &path : qdbus_cast<QList<QDBusObjectPath>>(value))
        paths.append(path.path());
    return paths;
}

QVariant plainValue(const QByteArray &type, const QVariant &value)
{
    if (type == "o")
        return value.value<QDBusObjectPath>().path();
    if (type == "ao")
        return objectPaths(value);
    if (type.startsWith("a("))
        return structures(value.value<QDBusArgument>());
    return value;
}

QByteArray typeOf(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature().toLatin1();
    return QDBusMetaType::typeToSignature(value.metaType());
}

} // namespace

const QList<MailSignature> &mailSignatures()
{
    static const QList<MailSignature> all{
        {application, "ProtocolVersion", true, "", "u"},
        {application, "Version", true, "", "s"},
        {application, "Features", true, "", "as"},
        {application, "Name", true, "", "s"},
        {application, "ApplicationVersion", true, "", "s"},
        {application, "Accounts", false, "", "a(sss)"},
        {application, "Selection", false, "", "ao"},
        {application, "MakeOutgoingMessage", false, "ss", "o"},
        {application, "Activate", false, "", ""},
        {application, "NewMessage", false, "sssta(sh)", "o"},
        {application, "Reply", false, "ossbbbta(sh)", "o"},
        {message, "ReplyTo", true, "", "s"},
        {message, "Subject", true, "", "s"},
        {message, "Reply", false, "bb", "o"},
        {message, "Delete", false, "", ""},
        {outgoing, "Subject", true, "", "s"},
        {outgoing, "Content", true, "", "s"},
        {outgoing, "Sender", true, "", "s"},
        {outgoing, "Visible", true, "", "b"},
        {outgoing, "ToRecipients", true, "", "a(ss)"},
        {outgoing, "CcRecipients", true, "", "a(ss)"},
        {outgoing, "BccRecipients", true, "", "a(ss)"},
        {outgoing, "AddRecipient", false, "sss", ""},
        {outgoing, "InsertAttachment", false, "sht", ""},
        {outgoing, "Send", false, "", ""},
        {outgoing, "Delete", false, "", ""},
    };
    return all;
}

const MailSignature *mailSignature(const MailCall &call)
{
    const bool isProperty = call.kind != MailCall::Kind::Method;
    for (const MailSignature &each : mailSignatures()) {
        if (each.isProperty == isProperty && call.member == QLatin1String(each.member)
            && call.interface == QLatin1String(each.interface))
            return &each;
    }
    return nullptr;
}

std::optional<QVariantList> busArguments(const MailSignature &signature, const MailCall &call, Error *error)
{
    const bool writes = call.kind == MailCall::Kind::WriteProperty;
    const QList<QByteArray> types = completeTypes(writes ? signature.out : signature.in);
    if (types.size() != call.arguments.size()) {
        handBack(error, mailError(MailErrorCode::InvalidArgument));
        return std::nullopt;
    }
    QVariantList arguments;
    for (qsizetype at = 0; at < types.size(); ++at) {
        const auto argument = busArgument(types[at], call.arguments[at], error);
        if (!argument)
            return std::nullopt;
        arguments.append(*argument);
    }
    return arguments;
}

std::optional<QVariantList> plainValues(const MailSignature &signature, const QDBusMessage &answer)
{
    QVariantList values = answer.arguments();
    if (signature.isProperty && !values.isEmpty())
        values = {values[0].value<QDBusVariant>().variant()};
    const QList<QByteArray> types = completeTypes(signature.out);
    if (values.size() != types.size())
        return std::nullopt;
    for (qsizetype at = 0; at < types.size(); ++at) {
        if (typeOf(values[at]) != types[at])
            return std::nullopt;
        values[at] = plainValue(types[at], values[at]);
    }
    return values;
}

} // namespace kest
