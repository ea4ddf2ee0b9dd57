#include "ui/Announcement.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QWidget>

namespace kest {

namespace {

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

void send(QWidget &source, const QString &words, Politeness politeness)
{
    QAccessibleAnnouncementEvent event(&source, words);
    event.setPoliteness(politeness == Politeness::Assertive ? QAccessible::AnnouncementPoliteness::Assertive
                                                            : QAccessible::AnnouncementPoliteness::Polite);
    QAccessible::updateAccessibility(&event);
}

#else

// Qt has no such event before 6.8 and drops its Alert on the way to the bus. So the signal goes out by hand, over the
// connection of Qt's own bridge: to who listens, a source is a name on the bus and a path, and these are the bridge's.
const QString connectionOfTheBridge = QStringLiteral("a11y");
const QString pathOfObjects = QStringLiteral("/org/a11y/atspi/accessible/%1");

void send(QWidget &source, const QString &words, Politeness politeness)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&source);
    const QDBusConnection bridge(connectionOfTheBridge);
    if (!interface || !bridge.isConnected())
        return;
    // Detail, politeness, nothing, the words, no properties: org.a11y.atspi.Event.Object.
    QDBusMessage signal = QDBusMessage::createSignal(pathOfObjects.arg(QAccessible::uniqueId(interface)),
                                                     QStringLiteral("org.a11y.atspi.Event.Object"),
                                                     QStringLiteral("Announcement"));
    signal << QString() << static_cast<int>(politeness) << 0 << QVariant::fromValue(QDBusVariant(words)) << QVariantMap();
    bridge.send(signal);
}

#endif

} // namespace

void announce(QWidget &source, const QString &words, Politeness politeness)
{
    if (QAccessible::isActive() && source.isVisible() && !words.isEmpty())
        send(source, words, politeness);
}

} // namespace kest
