// Whether the computer may sleep, by what the real program is doing.

#include "support/FakeLogind.h"
#include "support/X11Desktop.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

#include <csignal>

using kest::test::FakeLogind;
using kest::testing::X11Desktop;

namespace {

constexpr int patience = 30'000; // ms

} // namespace

class TestSleepWhileRecording : public QObject
{
    Q_OBJECT

    X11Desktop m_desktop;
    FakeLogind m_logind;
    std::unique_ptr<QProcess> m_kest;

    static bool press(const char *keys)
    {
        QProcess xdotool;
        xdotool.start(QStringLiteral("xdotool"), {QStringLiteral("key"), QString::fromLatin1(keys)});
        return xdotool.waitForFinished() && xdotool.exitCode() == 0;
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_kest = std::make_unique<QProcess>();
        m_kest->setProcessChannelMode(QProcess::ForwardedChannels);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"),
                           environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
        m_kest->setProcessEnvironment(environment);
        m_kest->start(qEnvironmentVariable("KEST_BUILD_DIR") + QStringLiteral("/bin/kest"), QStringList());
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.findWindow("Kest") && m_desktop.activeWindow() == m_desktop.findWindow("Kest"),
                                 patience);
        QVERIFY(m_logind.asked.isEmpty());
    }

    void recordingHoldsSleepOffAndNothingElseDoes()
    {
        // A window that has just been given the focus may miss a key; while it records, the key does nothing more.
        QTRY_VERIFY_WITH_TIMEOUT((press("ctrl+r"), m_logind.isHeld()), patience);
        QVERIFY(press("ctrl+p"));
        QTRY_VERIFY_WITH_TIMEOUT(!m_logind.isHeld(), patience);
        QVERIFY(press("ctrl+p"));
        QTRY_VERIFY_WITH_TIMEOUT(m_logind.isHeld(), patience);
        QVERIFY(press("ctrl+s"));
        QTRY_VERIFY_WITH_TIMEOUT(!m_logind.isHeld(), patience);
        QCOMPARE(m_logind.asked.size(), 2);
    }

    void aKilledProgramLetsGo()
    {
        QTRY_VERIFY_WITH_TIMEOUT((press("ctrl+r"), m_logind.isHeld()), patience);
        QCOMPARE(::kill(static_cast<pid_t>(m_kest->processId()), SIGKILL), 0);
        QVERIFY(m_kest->waitForFinished(patience));
        QTRY_VERIFY_WITH_TIMEOUT(!m_logind.isHeld(), patience);
    }

    void cleanupTestCase()
    {
        m_kest->kill();
        m_kest->waitForFinished();
    }
};

QTEST_GUILESS_MAIN(TestSleepWhileRecording)
#include "tst_sleepwhilerecording.moc"
