#include "Contract.h"

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestNumber = 15; // digits: what a double of JSON holds exactly

const ContractMember *find(const QList<ContractMember> &members, const QString &name)
{
    const auto found = std::find_if(members.cbegin(), members.cend(),
                                    [&name](const ContractMember &member) { return member.name == name; });
    return found == members.cend() ? nullptr : &*found;
}

QString attribute(const QXmlStreamReader &xml, QLatin1StringView name)
{
    return xml.attributes().value(name).toString();
}

bool isNumbered(const QString &path, QLatin1StringView kind)
{
    const qsizetype start = rootPath.size() + kind.size();
    const QStringView number = QStringView(path).mid(start);
    const auto isDigit = [](QChar unit) { return unit >= u'0' && unit <= u'9'; };
    return path.startsWith(rootPath + kind) && !number.isEmpty() && number.size() <= longestNumber
        && std::ranges::all_of(number, isDigit);
}

ContractMember readMethod(QXmlStreamReader &xml)
{
    ContractMember method {attribute(xml, "name"_L1), {}, {}, {}, false};
    while (xml.readNextStartElement()) {
        if (attribute(xml, "direction"_L1) == "out"_L1) {
            method.outputSignature += attribute(xml, "type"_L1);
        } else {
            method.inputNames += attribute(xml, "name"_L1);
            method.inputSignature += attribute(xml, "type"_L1);
        }
        xml.skipCurrentElement();
    }
    return method;
}

ContractInterface readInterface(QXmlStreamReader &xml)
{
    ContractInterface interface;
    interface.name = attribute(xml, "name"_L1).mid(interfacePrefix.size());
    while (xml.readNextStartElement()) {
        if (xml.name() == "method"_L1) {
            interface.methods += readMethod(xml);
            continue;
        }
        if (xml.name() == "property"_L1)
            interface.properties += {attribute(xml, "name"_L1), {}, {}, attribute(xml, "type"_L1),
                                     attribute(xml, "access"_L1).contains("write"_L1)};
        xml.skipCurrentElement();
    }
    return interface;
}

} // namespace

const ContractMember *ContractInterface::method(const QString &member) const
{
    return find(methods, member);
}

const ContractMember *ContractInterface::property(const QString &member) const
{
    return find(properties, member);
}

Contract Contract::builtIn()
{
    QFile file(u":/org.kest.Mail1.xml"_s);
    return Contract(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

Contract::Contract(const QByteArray &text)
{
    const QString source = QString::fromUtf8(text);
    QXmlStreamReader xml(source);
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        const qint64 start = source.lastIndexOf(u'<', xml.characterOffset() - 1);
        ContractInterface interface = readInterface(xml);
        interface.xml = source.mid(start, xml.characterOffset() - start);
        m_interfaces += interface;
    }
}

bool Contract::canBeObject(const QString &path)
{
    return path == rootPath || isNumbered(path, "/message/"_L1) || isNumbered(path, "/outgoing/"_L1);
}

const ContractInterface *Contract::forPath(const QString &path) const
{
    const auto named = [this](QLatin1StringView name) -> const ContractInterface * {
        for (const ContractInterface &interface : m_interfaces)
            if (interface.name == name)
                return &interface;
        return nullptr;
    };
    if (path == rootPath)
        return named("Application"_L1);
    if (path.startsWith(rootPath + "/message/"_L1))
        return named("Message"_L1);
    if (path.startsWith(rootPath + "/outgoing/"_L1))
        return named("OutgoingMessage"_L1);
    return nullptr;
}

} // namespace kest
