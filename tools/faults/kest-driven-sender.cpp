// Hands files to the mail application as the program does: one percent-encoded path a line on standard input, and for each
// "sent" or the error's words on standard output. By turns in one call and step by step.

#include "platform/MailTransport.h"
#include "platform/linux/mail/DBusMailTransport.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace kest;
using namespace Qt::StringLiterals;

namespace {

const QString root = QStringLiteral("/org/kest/Mail1");
const QString application = QStringLiteral("org.kest.Mail1.Application");
const QString outgoing = QStringLiteral("org.kest.Mail1.OutgoingMessage");

std::optional<Error> sendInOne(MailTransport &mail, const FileURL &file)
{
    return mail.call({root, application, u"NewMessage"_s, MailCall::Kind::Method,
                      {u"Subject"_s, u"Content"_s, QString(), quint64(0),
                       QVariantList{QVariant::fromValue(MailFile{file})}}}).error;
}

std::optional<Error> sendStepByStep(MailTransport &mail, const FileURL &file)
{
    const MailReply made = mail.call({root, application, u"MakeOutgoingMessage"_s, MailCall::Kind::Method, {u"s"_s, u"c"_s}});
    if (made.error)
        return made.error;
    const QString message = made.values.value(0).toString();
    const MailReply attached = mail.call({message, outgoing, u"InsertAttachment"_s, MailCall::Kind::Method,
                                          {MailFile{file}.name(), QVariant::fromValue(MailFile{file}), quint64(0)}});
    if (attached.error)
        return attached.error;
    return mail.call({message, outgoing, u"Visible"_s, MailCall::Kind::WriteProperty, {true}}).error;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication program(argc, argv);
    DBusMailTransport mail;
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return 1;
    bool inOne = false;
    for (QByteArray line = in.readLine(); !line.isEmpty(); line = in.readLine()) {
        const FileURL file = FileURL::fromNativePath(QByteArray::fromPercentEncoding(line.trimmed()));
        inOne = !inOne;
        const auto error = inOne ? sendInOne(mail, file) : sendStepByStep(mail, file);
        std::printf("%s\n", error ? error->description.toUtf8().replace('\n', ' ').constData() : "sent");
        std::fflush(stdout);
    }
    return 0;
}
