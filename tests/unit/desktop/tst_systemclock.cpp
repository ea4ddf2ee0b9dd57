#include "platform/linux/desktop/LinuxProcessInfo.h"
#include "platform/linux/desktop/SystemClock.h"

#include <QtTest>

using namespace kest;

class TestSystemClock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsLocalTimeThatNeverGoesBack()
    {
        const SystemClock clock;
        const QDateTime first = clock.now();
        QCOMPARE(first.timeSpec(), Qt::LocalTime);
        QVERIFY(qAbs(first.msecsTo(QDateTime::currentDateTime())) < 1000);
        QTRY_VERIFY(clock.now() > first);
        QVERIFY(clock.now() >= clock.now().addMSecs(-1));
    }

    void theInterfaceIsOfGenerationFifteen()
    {
        QCOMPARE(LinuxProcessInfo().operatingSystemVersion()->minor, 15);
    }
};

QTEST_GUILESS_MAIN(TestSystemClock)
#include "tst_systemclock.moc"
