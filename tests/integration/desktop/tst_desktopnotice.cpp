#include "platform/linux/desktop/DesktopNotice.h"

#include <QDBusConnection>
#include <QTest>
#include <QVariantMap>

using namespace kest;

namespace {

// The desktop's side, on a connection of its own as another process has it.
class Notifications : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    Notifications()
    {
        bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                           QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }
    ~Notifications() override { QDBusConnection::disconnectFromBus(bus.name()); }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("desktop"));
    QMap<quint32, QString> standing;
    int shown = 0;
    quint32 nextId = 7;

public Q_SLOTS:
    quint32 Notify(const QString &, quint32 replaces, const QString &, const QString &summary, const QString &body,
                   const QStringList &, const QVariantMap &, int)
    {
        const quint32 id = replaces ? replaces : nextId++;
        standing.insert(id, summary + u'\n' + body);
        ++shown;
        return id;
    }

    void CloseNotification(quint32 id) { standing.remove(id); }
};

} // namespace

class TestDesktopNotice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAServiceNothingHappens()
    {
        DesktopNotice notice;
        notice.show(QStringLiteral("a"), QStringLiteral("b"));
        notice.withdraw();
    }

    void isShownReplacedAndTakenAway()
    {
        Notifications desktop;
        DesktopNotice notice;
        notice.show(QStringLiteral("Kest"), QStringLiteral("<b> & more"));
        QTRY_COMPARE(desktop.standing.values(), QStringList { QStringLiteral("Kest\n&lt;b&gt; &amp; more") });
        notice.show(QStringLiteral("Kest"), QStringLiteral("again"));
        QTRY_COMPARE(desktop.standing.values(), QStringList { QStringLiteral("Kest\nagain") });
        QTRY_VERIFY((notice.withdraw(), desktop.standing.isEmpty()));
    }

    void ofTwoInQuickSuccessionTheLastOneStands()
    {
        Notifications desktop;
        DesktopNotice notice;
        notice.show(QStringLiteral("Kest"), QStringLiteral("first"));
        notice.show(QStringLiteral("Kest"), QStringLiteral("second"));
        notice.show(QStringLiteral("Kest"), QStringLiteral("third"));
        QTRY_COMPARE(desktop.standing.values(), QStringList { QStringLiteral("Kest\nthird") });
        QTRY_COMPARE(desktop.shown, 2);
        QTRY_VERIFY((notice.withdraw(), desktop.standing.isEmpty()));
    }

    void oneThatIsWithdrawnBeforeTheAnswerGoesAway()
    {
        Notifications desktop;
        DesktopNotice notice;
        notice.show(QStringLiteral("Kest"), QStringLiteral("text"));
        notice.withdraw();
        QTRY_COMPARE(desktop.shown, 1);
        QTRY_VERIFY(desktop.standing.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDesktopNotice)
#include "tst_desktopnotice.moc"
