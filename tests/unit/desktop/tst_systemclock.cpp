#include "platform/linux/desktop/LinuxProcessInfo.h"
#include "platform/linux/desktop/SystemClock.h"

#include <QDateTime>
#include <QTest>

#include <ctime>

using namespace kest;

class TestSystemClock : public QObject
{
    Q_OBJECT

    static std::chrono::milliseconds bootClock()
    {
        timespec time = {};
        ::clock_gettime(CLOCK_BOOTTIME, &time);
        return std::chrono::floor<std::chrono::milliseconds>(std::chrono::seconds(time.tv_sec)
                                                             + std::chrono::nanoseconds(time.tv_nsec));
    }

private Q_SLOTS:
    void tellsTheSystemsTimeInLocalTime()
    {
        const SystemClock clock;
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime told = clock.now();
        const QDateTime after = QDateTime::currentDateTime();
        QCOMPARE(told.timeSpec(), Qt::LocalTime);
        QVERIFY(before <= told && told <= after);
    }

    // Nobody can set the boot clock, and it counts suspend: what it says is what has passed.
    void countsWhatPassesByTheBootClock()
    {
        const SystemClock clock;
        const auto before = bootClock();
        const auto told = clock.uptime();
        const auto after = bootClock();
        QVERIFY(before <= told && told <= after);
        QTRY_VERIFY(clock.uptime() > told);
    }

    void theInterfaceIsOfGenerationFifteen()
    {
        QCOMPARE(LinuxProcessInfo().operatingSystemVersion()->minor, 15);
    }
};

QTEST_GUILESS_MAIN(TestSystemClock)
#include "tst_systemclock.moc"
