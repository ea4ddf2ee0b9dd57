// What the real program leaves behind, however it ends.

#include "support/X11Desktop.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

#include <chrono>
#include <csignal>
#include <functional>
#include <thread>
#include <utility>

using kest::testing::X11Desktop;
using namespace std::chrono_literals;

class TestEnding : public QObject
{
    Q_OBJECT

    X11Desktop m_desktop;
    std::unique_ptr<QProcess> m_kest;

    static QString recordings() { return QDir::homePath() + QStringLiteral("/Music/Kest"); }

    void launch(const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
                const std::function<void()> &inChild = {})
    {
        m_kest = std::make_unique<QProcess>();
        m_kest->setProcessChannelMode(QProcess::ForwardedChannels);
        m_kest->setProcessEnvironment(environment);
        m_kest->setChildProcessModifier(inChild);
        m_kest->start(qEnvironmentVariable("KEST_BUILD_DIR") + QStringLiteral("/bin/kest"), QStringList());
    }

    void start()
    {
        launch();
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.findWindow("Kest") && m_desktop.activeWindow() == m_desktop.findWindow("Kest"),
                                 10000);
    }

    // As soon as it does, not at the next look.
    bool comesIntoView()
    {
        const QDeadlineTimer limit(60s);
        while (!m_desktop.isViewable(m_desktop.findWindow("Kest")) && !limit.hasExpired())
            std::this_thread::sleep_for(1ms);
        return !limit.hasExpired();
    }

    void signal(int signalNumber) { QCOMPARE(::kill(static_cast<pid_t>(m_kest->processId()), signalNumber), 0); }

    void end(int signalNumber)
    {
        signal(signalNumber);
        QVERIFY(m_kest->waitForFinished(10000));
        QTRY_COMPARE(m_desktop.findWindow("Kest"), xcb_window_t(XCB_WINDOW_NONE));
    }

    static void press(const char *keys)
    {
        QProcess xdotool;
        xdotool.start(QStringLiteral("xdotool"), { QStringLiteral("key"), QString::fromLatin1(keys) });
        QVERIFY(xdotool.waitForFinished());
        QCOMPARE(xdotool.exitCode(), 0);
    }

    static QByteArray recording()
    {
        const auto names = QDir(recordings()).entryList({ QStringLiteral("*.m4a") }, QDir::Files);
        QFile file(recordings() + u'/' + names.value(0));
        return names.size() == 1 && file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    // An ordinary file, not the row of fragments that a running recording is.
    static bool isFinished(const QByteArray &file)
    {
        return file.indexOf("moov") > 0 && file.indexOf("moov") < file.indexOf("mdat") && !file.contains("moof");
    }

    void recordASecond()
    {
        // A window that has just been given the focus may miss a key; while it records, the key does nothing more.
        QTRY_VERIFY((press("ctrl+r"), !recording().isEmpty()));
        QTRY_VERIFY_WITH_TIMEOUT(recording().count("moof") >= 4, 10000); // fragments of a quarter of a second at most
    }

private Q_SLOTS:
    void init() { QVERIFY(QDir(recordings()).removeRecursively()); }

    void aRunningRecordingIsFinishedBeforeTheProgramEnds()
    {
        start();
        recordASecond();
        QVERIFY(!isFinished(recording()));
        end(SIGTERM);
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
        QVERIFY(isFinished(recording()));
    }

    void aKilledProgramsRecordingIsFinishedAtTheNextStart()
    {
        start();
        recordASecond();
        end(SIGKILL);
        QVERIFY(!isFinished(recording()));
        start();
        QTRY_VERIFY(isFinished(recording()));
        end(SIGTERM);
        QVERIFY(isFinished(recording()));
    }

    void withoutItsFoldersTheProgramSaysSoInTheLogAndEnds()
    {
        QVERIFY(QDir().mkpath(QDir::homePath() + QStringLiteral("/Music")));
        QFile inTheWay(recordings());
        QVERIFY(inTheWay.open(QFile::WriteOnly));
        QProcess kest;
        kest.start(qEnvironmentVariable("KEST_BUILD_DIR") + QStringLiteral("/bin/kest"), QStringList());
        QVERIFY(kest.waitForFinished(10000));
        QCOMPARE(kest.exitCode(), 1);
        QVERIFY(kest.readAllStandardError().contains("Error creating ~/Music/Kest : "));
        QVERIFY(inTheWay.remove());
    }

    void anEndSoonAfterTheStartIsInOrder()
    {
        // Around the moment in which the sound server is first spoken to.
        for (auto wait = 0us; wait < 40ms; wait += 500us) {
            launch();
            QVERIFY(comesIntoView());
            std::this_thread::sleep_for(wait);
            end(SIGTERM);
            QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
            QCOMPARE(m_kest->exitCode(), 0);
        }
    }

    void furtherWishesLeaveTheRecordingTheTimeToBeFinished()
    {
        start();
        recordASecond();
        signal(SIGTERM);
        std::this_thread::sleep_for(5ms); // the end has begun
        for (const int other : {SIGTERM, SIGHUP, SIGINT}) {
            if (m_kest->state() != QProcess::NotRunning)
                signal(other);
        }
        QVERIFY(m_kest->waitForFinished(10000));
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
        QVERIFY(isFinished(recording()));
        QTRY_COMPARE(m_desktop.findWindow("Kest"), xcb_window_t(XCB_WINDOW_NONE));
    }

    void whatWasIgnoredStaysIgnored()
    {
        launch(QProcessEnvironment::systemEnvironment(), [] { std::signal(SIGHUP, SIG_IGN); });
        QVERIFY(comesIntoView());
        signal(SIGHUP);
        QVERIFY(!m_kest->waitForFinished(500)); // nothing may happen
        end(SIGTERM);
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
    }

    void aSoundLibraryThatHangsDoesNotKeepTheProgram()
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(KEST_HANGING_SOUND));
        launch(environment);
        QVERIFY(comesIntoView());
        QTest::qWait(300); // it hangs by then
        end(SIGTERM);
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_kest->exitCode(), 0);
    }

    void aStartDuringTheEndComesToAWindow()
    {
        for (auto wait = 0ms; wait < 30ms; wait += 3ms) {
            start();
            signal(SIGTERM);
            std::this_thread::sleep_for(wait);
            const auto first = std::exchange(m_kest, nullptr);
            launch();
            QVERIFY(first->waitForFinished(10000));
            std::this_thread::sleep_for(100ms); // its window has gone by then
            QVERIFY(comesIntoView());
            end(SIGTERM);
        }
    }

    void aStartAndAnEndLeaveNoSettingsAndBothFolders()
    {
        start();
        end(SIGTERM);
        QVERIFY(QFileInfo(recordings()).isDir());
        QVERIFY(QFileInfo(recordings() + QStringLiteral(" Optional Outgoing Messages")).isDir());
        QVERIFY(!QFile::exists(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/kest")));
    }
};

QTEST_GUILESS_MAIN(TestEnding)
#include "tst_ending.moc"
