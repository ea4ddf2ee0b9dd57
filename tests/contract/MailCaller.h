#pragma once

#include <QDBusMessage>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace kest::test {

/// Calls org.kest.Mail1 as any program on the bus could, without the transport
/// that is tested elsewhere. Each call is over in 30 s at most.
class MailCaller
{
public:
    explicit MailCaller(QString service) : m_service(std::move(service)) {}

    QDBusMessage call(const QString &path, const QString &interface, const QString &member,
                      const QVariantList &arguments = {}) const;

    /// A method of the application object.
    QDBusMessage application(const QString &member, const QVariantList &arguments = {}) const;

    QDBusMessage get(const QString &path, const QString &interface, const QString &property) const;
    QDBusMessage set(const QString &path, const QString &interface, const QString &property,
                     const QVariant &value) const;

    /// The value of an outgoing message's property; invalid on failure.
    QVariant outgoing(const QString &path, const QString &property) const;

    /// Rows of an array of structures of texts.
    static QList<QStringList> rows(const QVariant &value);

    /// The only object path of an answer; empty on failure.
    static QString path(const QDBusMessage &answer);

    /// The last word of an error's name; empty when it is no error.
    static QString errorWord(const QDBusMessage &answer);

private:
    QString m_service;
};

inline const QString mailRoot = QStringLiteral("/org/kest/Mail1");
inline const QString applicationInterface = QStringLiteral("org.kest.Mail1.Application");
inline const QString messageInterface = QStringLiteral("org.kest.Mail1.Message");
inline const QString outgoingInterface = QStringLiteral("org.kest.Mail1.OutgoingMessage");

} // namespace kest::test
