// Arguments as they come over the bus, into JSON, and an add-on's JSON back over the bus into what Kest takes. Needs a
// session bus of its own: calls of a connection to itself are marshalled as all are, and stay in the process.

#include "BusValues.h"
#include "Target.h"
#include "platform/linux/mail/MailFileDescriptor.h"
#include "platform/linux/mail/MailSignatures.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QJsonArray>
#include <QJsonDocument>

#include <sys/mman.h>

using namespace kest;
using namespace kest::fuzz;
using namespace Qt::StringLiterals;

namespace {

QString textOf(const QByteArray &bytes)
{
    return bytes.size() % 2 ? QString::fromUtf8(bytes)
                            : QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
}

/// Plays the host: reads a call's arguments, answers what it was told to.
class Host : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        QList<QDBusUnixFileDescriptor> files;
        const QJsonArray json = toJson(message.arguments(), files, 7);
        KEST_MUST(json.size() == message.arguments().size());
        const QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Compact);
        KEST_MUST(text.count("{\"file\":") >= files.size());
        const QVariant value = fromJson(answer, signature);
        if (!value.isValid())
            return connection.send(message.createErrorReply(u"org.kest.Mail1.Error.Failed"_s, u"no"_s));
        answered = connection.send(message.createReply(asVariant ? QVariant::fromValue(QDBusVariant(value)) : value));
        return answered;
    }

    QJsonValue answer;
    QString signature;
    bool asVariant = false;
    bool answered = false;
};

QVariant argument(const QByteArray &type, Choices &choices, const QDBusUnixFileDescriptor &file)
{
    if (type == "o")
        return QVariant::fromValue(QDBusObjectPath(u"/org/kest/Mail1/message/"_s + QString::number(choices.byte())));
    if (type == "t")
        return QVariant::fromValue(~quint64(0) >> (choices.byte() % 64));
    if (type == "b")
        return choices.byte() % 2 == 1;
    if (type == "h")
        return QVariant::fromValue(file);
    if (type != "(sh)")
        return textOf(choices.bytes());
    QList<NamedDescriptor> files;
    for (int count = choices.byte() % 5; count > 0; --count)
        files.append({textOf(choices.bytes()), file});
    return QVariant::fromValue(files);
}

QVariantList arguments(QByteArray types, Choices &choices)
{
    static const QDBusUnixFileDescriptor file(memfd_create("file", MFD_CLOEXEC));
    QVariantList list;
    for (qsizetype at = 0; at < types.size(); ++at) {
        const bool isList = types[at] == 'a';
        list += argument(isList ? QByteArray("(sh)") : types.mid(at, 1), choices, file);
        at += isList ? 4 : 0;
    }
    return list;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "busvalues";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static QDBusConnection bus = QDBusConnection::sessionBus();
    static Host host;
    static const bool served = bus.registerVirtualObject(u"/org/kest/Mail1"_s, &host, QDBusConnection::SubPath);
    KEST_MUST(bus.isConnected() && served);
    registerBusTypes();
    registerNamedDescriptor();

    Choices choices(data, size);
    const MailSignature &signature = mailSignatures()[choices.byte() % mailSignatures().size()];
    auto call = QDBusMessage::createMethodCall(bus.baseService(), u"/org/kest/Mail1"_s, u"org.kest.Mail1"_s, u"Call"_s);
    call.setArguments(arguments(signature.in, choices));
    host.signature = QString::fromLatin1(signature.out);
    host.asVariant = signature.isProperty;
    host.answer = QJsonDocument::fromJson("[" + choices.rest() + "]").array().at(0);
    host.answered = false;
    const QDBusMessage answer = bus.call(call);
    // What the host took for an answer, the bus must be able to carry.
    KEST_MUST(host.answered == (answer.type() == QDBusMessage::ReplyMessage));
    if (!host.answered)
        return 0;
    KEST_MUST(plainValues(signature, answer));
    for (const MailSignature &other : mailSignatures())
        (void)plainValues(other, answer);
    return 0;
}
