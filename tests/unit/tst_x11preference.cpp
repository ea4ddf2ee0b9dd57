#include "platform/linux/LinuxPlatform.h"

#include <QTest>

using namespace kest;

/// Without an application object: the environment is all that is asked and changed.
class TestX11Preference : public QObject
{
    Q_OBJECT

private:
    static constexpr const char *display = "DISPLAY";
    static constexpr const char *platform = "QT_QPA_PLATFORM";
    static constexpr const char *noSharedMemory = "QT_XCB_NO_MITSHM";

private Q_SLOTS:
    void init()
    {
        qputenv(display, ":7");
        qunsetenv(platform);
        qunsetenv(noSharedMemory);
    }

    void isNothingWithoutX11()
    {
        qunsetenv(display);
        preferX11();
        QVERIFY(!qEnvironmentVariableIsSet(platform));
        QVERIFY(!qEnvironmentVariableIsSet(noSharedMemory));
        forgetX11Preference();
    }

    void isX11BeforeWaylandAndPicturesThatAreSent()
    {
        preferX11();
        QCOMPARE(qgetenv(platform), QByteArray("xcb;wayland"));
        QVERIFY(qEnvironmentVariableIsSet(noSharedMemory));
        forgetX11Preference();
    }

    // What Kest starts must not inherit it.
    void isForgotten()
    {
        preferX11();
        forgetX11Preference();
        QVERIFY(!qEnvironmentVariableIsSet(platform));
        QVERIFY(!qEnvironmentVariableIsSet(noSharedMemory));
    }

    void leavesThePersonsChoicesAlone_data()
    {
        QTest::addColumn<QByteArray>("mine");
        QTest::addColumn<QByteArray>("other");
        QTest::newRow("platform") << QByteArray(platform) << QByteArray(noSharedMemory);
        QTest::newRow("shared memory") << QByteArray(noSharedMemory) << QByteArray(platform);
    }

    void leavesThePersonsChoicesAlone()
    {
        QFETCH(QByteArray, mine);
        QFETCH(QByteArray, other);
        qputenv(mine, "mine");
        preferX11();
        QCOMPARE(qgetenv(mine), QByteArray("mine"));
        QVERIFY(qEnvironmentVariableIsSet(other));
        forgetX11Preference();
        QCOMPARE(qgetenv(mine), QByteArray("mine"));
        QVERIFY(!qEnvironmentVariableIsSet(other));
    }
};

QTEST_APPLESS_MAIN(TestX11Preference)
#include "tst_x11preference.moc"
