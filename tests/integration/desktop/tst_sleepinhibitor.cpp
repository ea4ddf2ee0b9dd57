#include "platform/linux/desktop/SleepInhibitor.h"

#include "support/FakeLogind.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QFile>
#include <QMessageLogContext>
#include <QTest>
#include <QVariantMap>

using namespace kest;
using namespace kest::test;

namespace {

const QString why = QStringLiteral("A message is being recorded");

QStringList logged;

void note(QtMsgType, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "kest.sleep") == 0)
        logged.append(text);
}

/// The desktop portal's half.
class FakePortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    FakePortal()
    {
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this, QDBusConnection::ExportAllSlots);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~FakePortal() override { QDBusConnection::disconnectFromBus(bus.name()); }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"));
    uint flags = 0;
    QString reason;
    int asked = 0;

public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString &, uint what, const QVariantMap &options)
    {
        ++asked;
        flags = what;
        reason = options.value(QStringLiteral("reason")).toString();
        return QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/1"));
    }
};

class FakeRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    explicit FakeRequest(FakePortal &portal)
    {
        portal.bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop/request/1"), this,
                                  QDBusConnection::ExportAllSlots);
    }

    int closed = 0;

public Q_SLOTS:
    void Close() { ++closed; }
};

} // namespace

/// How sleep is held off, and let go.
class TestSleepInhibitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aLockOfLogindIsHeldAndLetGo()
    {
        FakeLogind logind;
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        sleep.hold(why);
        QTRY_VERIFY(logind.isHeld());
        QCOMPARE(logind.asked, (QList<QStringList>{{QStringLiteral("sleep:idle"), QStringLiteral("Kest"), why,
                                                    QStringLiteral("block")}}));
        sleep.letGo();
        QTRY_VERIFY(!logind.isHeld());
        sleep.hold(why);
        QTRY_VERIFY(logind.isHeld());
    }

    void holdingTwiceAsksOnce()
    {
        FakeLogind logind;
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        sleep.hold(why);
        sleep.hold(why);
        QTRY_VERIFY(logind.isHeld());
        sleep.hold(why);
        const QDBusPendingCall later = QDBusConnection::systemBus().asyncCall(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping")));
        QTRY_VERIFY_WITH_TIMEOUT(later.isFinished(), 60'000); // a further question had come before it
        QCoreApplication::processEvents();
        QCOMPARE(logind.asked.size(), 1);
    }

    void whatIsLetGoBeforeTheAnswerIsNotKept()
    {
        FakeLogind logind;
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        sleep.hold(why);
        sleep.letGo();
        QTRY_COMPARE(logind.asked.size(), 1);
        QTRY_VERIFY(!logind.isHeld());
        sleep.hold(why);
        QTRY_VERIFY(logind.isHeld());
    }

    void whatIsWantedAgainBeforeTheAnswerIsKept()
    {
        FakeLogind logind;
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        sleep.hold(why);
        sleep.letGo();
        sleep.hold(why);
        QTRY_VERIFY(logind.isHeld());
        sleep.letGo();
        QTRY_VERIFY(!logind.isHeld());
    }

    void theEndOfItsOwnerLetsGo()
    {
        FakeLogind logind;
        auto sleep = std::make_unique<SleepInhibitor>(SleepInhibitor::Way::Logind);
        sleep->hold(why);
        QTRY_VERIFY(logind.isHeld());
        sleep.reset();
        QTRY_VERIFY(!logind.isHeld());
    }

    void withoutLogindItIsLoggedOnce()
    {
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        const auto before = qInstallMessageHandler(note);
        sleep.hold(why);
        const bool told = QTest::qWaitFor([] { return !logged.isEmpty(); }, 30000);
        sleep.hold(why);
        QDBusConnection::systemBus().call(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.login1"), QStringLiteral("/"), QString(), QStringLiteral("Ping")));
        QCoreApplication::processEvents(); // the second refusal came before that answer
        qInstallMessageHandler(before);
        QVERIFY(told);
        QCOMPARE(logged.size(), 1);
        QVERIFY2(logged.first().startsWith(QStringLiteral("Sleep cannot be held off: ")), qPrintable(logged.first()));
    }

    void aRefusalIsTriedAgainWithTheNextRecording()
    {
        FakeLogind logind;
        logind.refuses = true;
        SleepInhibitor sleep(SleepInhibitor::Way::Logind);
        sleep.hold(why);
        QTRY_COMPARE(logind.asked.size(), 1);
        QVERIFY(!logind.isHeld());
        sleep.letGo();
        logind.refuses = false;
        QTRY_VERIFY((sleep.hold(why), logind.isHeld()));
    }

    void inASandboxThePortalIsAsked()
    {
        FakePortal portal;
        FakeRequest request(portal);
        SleepInhibitor sleep(SleepInhibitor::Way::Portal);
        sleep.hold(why);
        QTRY_COMPARE(portal.asked, 1);
        QCOMPARE(portal.flags, 4U | 8U);
        QCOMPARE(portal.reason, why);
        QTRY_VERIFY((sleep.letGo(), request.closed == 1));
        sleep.letGo();
        QCoreApplication::processEvents();
        QCOMPARE(request.closed, 1);
    }

    void outsideOfASandboxItIsLogind()
    {
        QVERIFY(!QFile::exists(QStringLiteral("/.flatpak-info")));
        QCOMPARE(SleepInhibitor::wayHere(), SleepInhibitor::Way::Logind);
    }
};

int main(int argc, char **argv)
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    QCoreApplication application(argc, argv);
    TestSleepInhibitor test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sleepinhibitor.moc"
