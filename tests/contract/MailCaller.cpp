#include "contract/MailCaller.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace kest::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int limit = 30'000;

const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

QDBusMessage MailCaller::call(const QString &path, const QString &interface, const QString &member,
                              const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_service, path, interface, member);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message, QDBus::BlockWithGui, limit);
}

QDBusMessage MailCaller::application(const QString &member, const QVariantList &arguments) const
{
    return call(mailRoot, applicationInterface, member, arguments);
}

QDBusMessage MailCaller::get(const QString &path, const QString &interface, const QString &property) const
{
    return call(path, properties, u"Get"_s, {interface, property});
}

QDBusMessage MailCaller::set(const QString &path, const QString &interface, const QString &property,
                             const QVariant &value) const
{
    return call(path, properties, u"Set"_s, {interface, property, QVariant::fromValue(QDBusVariant(value))});
}

QVariant MailCaller::outgoing(const QString &path, const QString &property) const
{
    return get(path, outgoingInterface, property).arguments().value(0).value<QDBusVariant>().variant();
}

QList<QStringList> MailCaller::rows(const QVariant &value)
{
    QList<QStringList> all;
    const auto argument = value.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        QStringList texts;
        argument.beginStructure();
        while (!argument.atEnd())
            texts.append(argument.asVariant().toString());
        argument.endStructure();
        all.append(texts);
    }
    argument.endArray();
    return all;
}

QString MailCaller::path(const QDBusMessage &answer)
{
    return answer.arguments().value(0).value<QDBusObjectPath>().path();
}

QString MailCaller::errorWord(const QDBusMessage &answer)
{
    if (answer.type() != QDBusMessage::ErrorMessage)
        return {};
    return answer.errorName().section(u'.', -1);
}

} // namespace kest::test
