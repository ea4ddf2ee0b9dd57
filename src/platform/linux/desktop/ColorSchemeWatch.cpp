#include "platform/linux/desktop/ColorSchemeWatch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>

namespace kest {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// The portal wraps the answer of Read twice.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

ColorSchemeWatch::ColorSchemeWatch(QObject *parent)
    : QObject(parent)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage read = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    read.setArguments({appearance, colorScheme});
    auto *call = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, &ColorSchemeWatch::answered);
}

void ColorSchemeWatch::answered(QDBusPendingCallWatcher *call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *call;
    if (!reply.isError())
        settingChanged(appearance, colorScheme, reply.value());
}

void ColorSchemeWatch::settingChanged(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == appearance && key == colorScheme)
        Q_EMIT colorSchemeRead(unwrapped(value.variant()).toUInt());
}

} // namespace kest
