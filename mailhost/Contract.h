#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace kest {

/// One member of an interface, as the interface XML states it.
struct ContractMember {
    QString name;
    QList<QString> inputNames; ///< Of a method, in order.
    QString inputSignature;
    QString outputSignature; ///< For a property its type.
    bool writable = false;   ///< Properties only.

    /// A method that takes nothing and gives something: it asks, and changes
    /// nothing.
    bool onlyAsks() const { return inputSignature.isEmpty() && !outputSignature.isEmpty(); }
};

/// One interface: its short name ("Application") and its members.
struct ContractInterface {
    QString name;
    QString xml; ///< The `interface` element as it stands in the file.
    QList<ContractMember> methods;
    QList<ContractMember> properties;

    /// Null when there is none.
    const ContractMember *method(const QString &member) const;
    const ContractMember *property(const QString &member) const;
};

/// The bus contract, read from resources/org.kest.Mail1.xml, so that the file
/// is what the host checks calls against and what it shows to introspection.
/// Immutable after reading.
class Contract
{
public:
    /// The contract built into the program.
    static Contract builtIn();

    /// Reads interface XML; an unreadable one gives a contract without interfaces.
    explicit Contract(const QByteArray &xml);

    /// The interface of an object by its path; null where no object can be.
    const ContractInterface *forPath(const QString &path) const;

    /// Whether a path that has an interface may lead to an object: the root, and what ends in a number of at most 15
    /// digits. What is passed on must not grow with what a caller puts into a path.
    static bool canBeObject(const QString &path);

    const QList<ContractInterface> &interfaces() const { return m_interfaces; }

private:
    QList<ContractInterface> m_interfaces;
};

inline constexpr QLatin1StringView rootPath {"/org/kest/Mail1"};
inline constexpr QLatin1StringView interfacePrefix {"org.kest.Mail1."};

} // namespace kest
