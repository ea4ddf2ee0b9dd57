#include "support/InterfaceDescription.h"

#include <QFile>
#include <QXmlStreamReader>

namespace kest::test {

namespace {

QString key(const QString &interface, const QString &kind, const QString &name)
{
    return interface + u' ' + kind + u' ' + name;
}

MemberDescription readMember(QXmlStreamReader &xml, const QString &kind)
{
    MemberDescription member;
    member.kind = kind;
    const auto attributes = xml.attributes();
    member.access = attributes.value(QLatin1String("access")).toString();
    member.out = attributes.value(QLatin1String("type")).toString();
    while (xml.readNextStartElement()) {
        const auto argument = xml.attributes();
        if (xml.name() == QLatin1String("arg")) {
            const bool goesIn = kind == QLatin1String("method") && argument.value(QLatin1String("direction")) != u"out";
            (goesIn ? member.in : member.out) += argument.value(QLatin1String("type")).toString();
        }
        xml.skipCurrentElement();
    }
    return member;
}

} // namespace

QMap<QString, MemberDescription> describedMembers(const QByteArray &text, const QString &prefix)
{
    QMap<QString, MemberDescription> members;
    QXmlStreamReader xml(text);
    QString interface;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString element = xml.name().toString();
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (element == u"interface")
            interface = name;
        else if (interface.startsWith(prefix) && (element == u"method" || element == u"property" || element == u"signal"))
            members.insert(key(interface, element, name), readMember(xml, element));
    }
    return members;
}

QByteArray mailInterfaceXml()
{
    QFile file(qEnvironmentVariable("KEST_SOURCE_DIR") + QStringLiteral("/resources/org.kest.Mail1.xml"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("org.kest.Mail1.xml is not there");
    return file.readAll();
}

const QMap<QString, MemberDescription> &mailInterface()
{
    static const auto members = describedMembers(mailInterfaceXml(), QStringLiteral("org.kest.Mail1."));
    return members;
}

} // namespace kest::test
