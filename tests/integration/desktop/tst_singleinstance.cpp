#include "platform/linux/desktop/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QtTest>


using namespace kest;
using namespace std::chrono_literals;

class TestSingleInstance : public QObject
{
    Q_OBJECT

    static QDBusMessage callActivate(const QVariantMap &data)
    {
        auto call = QDBusMessage::createMethodCall(QStringLiteral("org.kest.Kest"), QStringLiteral("/org/kest/Kest"),
                                                   QStringLiteral("org.freedesktop.Application"),
                                                   QStringLiteral("Activate"));
        call << data;
        return call;
    }

private Q_SLOTS:
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

    void aFirstThatNeverAnswersIsWaitedForNoLongerThanTold()
    {
        const SingleInstance first; // does not serve
        SingleInstance second;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!second.handOver(300ms));
        QVERIFY(timer.elapsed() >= 300);
        QVERIFY(timer.elapsed() < 3000);
    }

    void aFirstThatEndsMeanwhileLeavesTheSecondToRun()
    {
        auto first = std::make_unique<SingleInstance>();
        SingleInstance second;
        QVERIFY(!second.isFirst());
        first.reset();
        QVERIFY(!second.handOver(10s));
        QVERIFY(second.isFirst());
    }
};

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
