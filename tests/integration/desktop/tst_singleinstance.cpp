#include "platform/linux/desktop/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace std::chrono_literals;

class TestSingleInstance : public QObject
{
    Q_OBJECT

    static QDBusMessage callTo(const QString &interface, const QString &member, const QVariantList &arguments)
    {
        auto call = QDBusMessage::createMethodCall(QStringLiteral("org.kest.Kest"), QStringLiteral("/org/kest/Kest"),
                                                   interface, member);
        call.setArguments(arguments);
        return call;
    }

    static QDBusMessage callActivate(const QVariantMap &data)
    {
        return callTo(QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"), {data});
    }

    static void verifyGivesUpAfter300ms(std::chrono::milliseconds limit, std::chrono::milliseconds endLimit)
    {
        SingleInstance second;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!second.handOver(limit, endLimit));
        QVERIFY(timer.elapsed() >= 300);
        QVERIFY(timer.elapsed() < 3000);
    }

private Q_SLOTS:
    // It goes with the process, which is that of all these cases.
    void cleanup() { QDBusConnection::sessionBus().unregisterService(QStringLiteral("org.kest.Kest")); }

    void theFirstIsTheFirstAndTheSecondIsNot()
    {
        const SingleInstance first;
        QVERIFY(first.isFirst());
        QVERIFY(!SingleInstance().isFirst());
    }

    void whenTheFirstEndsTheNextIsTheFirst()
    {
        { const SingleInstance first; }
        QVERIFY(SingleInstance().isFirst());
    }

    void withoutARuntimeFolderEveryoneIsTheFirst()
    {
        const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("XDG_RUNTIME_DIR");
        const SingleInstance one;
        const SingleInstance two;
        qputenv("XDG_RUNTIME_DIR", folder);
        QVERIFY(one.isFirst() && two.isFirst());
    }

    void theFirstIsToldWithItsStandardInterface()
    {
        SingleInstance first;
        QSignalSpy activated(&first, &SingleInstance::activated);
        first.serve();
        // From another connection, as another process would.
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("second"));
        QDBusPendingCall pending = bus.asyncCall(callActivate({ { QStringLiteral("desktop-startup-id"), QStringLiteral("x") } }));
        QTRY_VERIFY(pending.isFinished());
        QVERIFY2(!pending.isError(), qPrintable(pending.error().message()));
        QCOMPARE(activated.count(), 1);
        QDBusConnection::disconnectFromBus(QStringLiteral("second"));
    }

    void nothingBesideTheStandardInterfaceCanBeCalled_data()
    {
        QTest::addColumn<QString>("interface");
        QTest::addColumn<QString>("member");
        const QString ours = QStringLiteral("org.freedesktop.Application");
        QTest::newRow("deleteLater") << ours << QStringLiteral("deleteLater");
        QTest::newRow("serve") << ours << QStringLiteral("serve");
        QTest::newRow("Record") << ours << QStringLiteral("Record");
        QTest::newRow("any interface") << QString() << QStringLiteral("deleteLater");
        QTest::newRow("class name") << QStringLiteral("local.kest.SingleInstance") << QStringLiteral("handOver");
    }
    void nothingBesideTheStandardInterfaceCanBeCalled()
    {
        QFETCH(QString, interface);
        QFETCH(QString, member);
        SingleInstance first;
        first.serve();
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
        const QDBusPendingCall pending = bus.asyncCall(callTo(interface, member, {}));
        QTRY_VERIFY(pending.isFinished());
        QVERIFY(pending.isError());
        QVERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(QStringLiteral("org.kest.Kest")));
        QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
    }

    void filesAreNotOpenedAndActionsNotCarriedOut()
    {
        SingleInstance first;
        QSignalSpy activated(&first, &SingleInstance::activated);
        first.serve();
        const QString ours = QStringLiteral("org.freedesktop.Application");
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
        const QVariantList noParameters;
        for (const char *action : {"record", "send", "new-message", ""}) {
            const QDBusPendingCall pending = bus.asyncCall(
                callTo(ours, QStringLiteral("ActivateAction"), {QString::fromLatin1(action), noParameters, QVariantMap()}));
            QTRY_VERIFY(pending.isFinished());
            QVERIFY2(!pending.isError(), qPrintable(pending.error().message()));
        }
        QCOMPARE(activated.count(), 0);
        const QDBusPendingCall pending =
            bus.asyncCall(callTo(ours, QStringLiteral("Open"), {QStringList{QStringLiteral("file:///etc/passwd")}, QVariantMap()}));
        QTRY_VERIFY(pending.isFinished());
        QCOMPARE(activated.count(), 1);
        QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
    }

    void aFirstThatNeverAnswersIsWaitedForNoLongerThanTold()
    {
        const SingleInstance first;
        // In the same thread, which waits: it does not come to answer.
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("silent"));
        QObject silent;
        QVERIFY(bus.registerObject(QStringLiteral("/org/kest/Kest"), &silent, QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.kest.Kest")));
        verifyGivesUpAfter300ms(300ms, 60s);
        QDBusConnection::disconnectFromBus(QStringLiteral("silent"));
    }

    void aFirstThatIsEndingIsWaitedForAsLongAsAnEndMayTake()
    {
        SingleInstance first;
        first.withdraw();
        verifyGivesUpAfter300ms(0ms, 300ms);
    }

    void oneThatHasWithdrawnComesToTheFrontNoMore()
    {
        SingleInstance first;
        QSignalSpy activated(&first, &SingleInstance::activated);
        first.serve();
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("second"));
        const QDBusPendingCall before = bus.asyncCall(callActivate({}));
        first.withdraw(); // that call is on its way
        const QDBusPendingCall after = bus.asyncCall(callActivate({}));
        QTRY_VERIFY(before.isFinished() && after.isFinished());
        QVERIFY(before.isError());
        QVERIFY(after.isError());
        QCOMPARE(activated.count(), 0);
        QTRY_VERIFY(!bus.interface()->isServiceRegistered(QStringLiteral("org.kest.Kest")));
        QVERIFY(!SingleInstance().isFirst()); // it has not ended yet
        QDBusConnection::disconnectFromBus(QStringLiteral("second"));
    }

    void oneThatRunsBesideTheFirstTakesItsPlace()
    {
        auto first = std::make_unique<SingleInstance>();
        // Its name, on a connection of its own as another process has.
        const QString name = QStringLiteral("org.kest.Kest");
        auto others = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("first"));
        QVERIFY(others.registerService(name));
        SingleInstance second;
        second.serve();
        QVERIFY(!second.isFirst());
        first.reset();
        QTRY_VERIFY_WITH_TIMEOUT(second.isFirst(), 60'000);
        others.unregisterService(name);
        QDBusConnection::disconnectFromBus(QStringLiteral("first"));
        QTRY_VERIFY_WITH_TIMEOUT(QDBusConnection::sessionBus().interface()->isServiceRegistered(name), 60'000);
        QSignalSpy activated(&second, &SingleInstance::activated);
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("third"));
        const QDBusPendingCall wish = bus.asyncCall(callActivate({}));
        QTRY_VERIFY(wish.isFinished());
        QVERIFY2(!wish.isError(), qPrintable(wish.error().message()));
        QCOMPARE(activated.count(), 1);
        QDBusConnection::disconnectFromBus(QStringLiteral("third"));
    }

    void aFirstThatEndsMeanwhileLeavesTheSecondToRun()
    {
        auto first = std::make_unique<SingleInstance>();
        SingleInstance second;
        QVERIFY(!second.isFirst());
        first.reset();
        QVERIFY(!second.handOver(10s, 10s));
        QVERIFY(second.isFirst());
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
