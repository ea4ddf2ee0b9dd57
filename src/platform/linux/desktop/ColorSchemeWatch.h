#pragma once

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QObject>

namespace kest {

/// Asks the desktop whether the person wants dark windows, and hears when they
/// change their mind: the "color-scheme" of org.freedesktop.appearance in the
/// settings portal. Never waits for it; without a portal nothing is said.
class ColorSchemeWatch : public QObject
{
    Q_OBJECT

public:
    explicit ColorSchemeWatch(QObject *parent = nullptr);

Q_SIGNALS:
    /// 0: no preference, 1: dark, 2: light. Anything else is passed on too.
    void colorSchemeRead(uint scheme);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void answered(QDBusPendingCallWatcher *call);
};

} // namespace kest
