#pragma once

#include <QObject>
#include <QString>

namespace kest {

/// The one notice of this program among those of the desktop, by
/// org.freedesktop.Notifications (Desktop Notifications Specification 1.2).
///
/// Never waits: without a session bus or a notification service nothing
/// happens. Main thread.
class DesktopNotice : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows it, in place of the one that may still stand.
    void show(const QString &title, const QString &text);

    /// Takes it away, also when the service has not yet answered that it stands.
    void withdraw();

private:
    void send();
    void close();

    QString m_title;
    QString m_text;
    quint32 m_id = 0; // the service's; 0 while none is known
    bool m_isWanted = false;
    bool m_isSent = false;    // and not answered yet
    bool m_hasChanged = false; // since it was sent
};

} // namespace kest
