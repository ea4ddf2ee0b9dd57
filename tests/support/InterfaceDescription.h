#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace kest::test {

/// D-Bus types and access of one member of an interface.
struct MemberDescription {
    QString kind;   ///< "method", "property" or "signal".
    QString in;     ///< Types of what goes in.
    QString out;    ///< Types of what comes out, of a property, or of a signal.
    QString access; ///< Of a property.

    friend bool operator==(const MemberDescription &, const MemberDescription &) = default;
};

/// The members in introspection XML, by "interface kind name". Only interfaces
/// whose name begins with `prefix` count.
QMap<QString, MemberDescription> describedMembers(const QByteArray &xml, const QString &prefix);

/// resources/org.kest.Mail1.xml.
QByteArray mailInterfaceXml();

/// Its members.
const QMap<QString, MemberDescription> &mailInterface();

} // namespace kest::test
