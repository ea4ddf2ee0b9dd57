// The real program among other programs' windows, on a real display with a window manager.

#include "support/X11Desktop.h"

#include <QProcess>
#include <QTest>

#include <csignal>

using kest::testing::X11Desktop;

namespace {

// Longer than the program takes to believe that another application is in front.
constexpr int afterTheGrace = 500; // ms
constexpr int patience = 60'000;   // ms

} // namespace

class TestCompanion : public QObject
{
    Q_OBJECT

    X11Desktop m_desktop;
    std::unique_ptr<QProcess> m_kest;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_window_t m_mail = XCB_WINDOW_NONE;
    xcb_window_t m_other = XCB_WINDOW_NONE;

    static QString program() { return qEnvironmentVariable("KEST_BUILD_DIR") + QStringLiteral("/bin/kest"); }

    // One at a time: of two at once, the window manager may turn to either last.
    void openInFront(xcb_window_t &window, const char *className)
    {
        window = m_desktop.openWindow(className);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.activeWindow(), window, patience);
    }

    void turnTo(xcb_window_t window)
    {
        m_desktop.activate(window);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.activeWindow(), window, patience);
    }

    void hideByTurningToAnother()
    {
        turnTo(m_other);
        QTRY_VERIFY_WITH_TIMEOUT(!m_desktop.isViewable(m_window), patience);
    }

private Q_SLOTS:
    void init()
    {
        openInFront(m_mail, "thunderbird-default");
        openInFront(m_other, "XTerm");
        m_kest = std::make_unique<QProcess>();
        m_kest->setProcessChannelMode(QProcess::ForwardedChannels);
        m_kest->start(program(), QStringList());
        QTRY_VERIFY_WITH_TIMEOUT((m_window = m_desktop.findWindow("Kest")) && m_desktop.isViewable(m_window), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.activeWindow(), m_window, patience);
    }

    void cleanup()
    {
        if (m_kest->state() != QProcess::NotRunning) {
            m_kest->terminate();
            QVERIFY(m_kest->waitForFinished());
        }
        m_desktop.closeWindow(m_mail);
        m_desktop.closeWindow(m_other);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.findWindow("Kest"), xcb_window_t(XCB_WINDOW_NONE), patience);
    }

    void anotherApplicationHidesTheWindow()
    {
        turnTo(m_other);
        QTRY_VERIFY_WITH_TIMEOUT(!m_desktop.isViewable(m_window), patience);
        QCOMPARE(m_desktop.activeWindow(), m_other);
    }

    void theMailApplicationKeepsTheWindow()
    {
        turnTo(m_mail);
        QTest::qWait(afterTheGrace); // nothing may happen
        QVERIFY(m_desktop.isViewable(m_window));
    }

    void theMailApplicationBringsTheWindowBackInFrontWithoutTheFocus()
    {
        hideByTurningToAnother();
        turnTo(m_mail);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.isViewable(m_window), patience);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.stackingOf(m_window) > m_desktop.stackingOf(m_mail), patience);
        QTest::qWait(afterTheGrace); // nothing may happen
        QCOMPARE(m_desktop.activeWindow(), m_mail);
        QVERIFY(m_desktop.isViewable(m_window));
    }

    void havingComeBackWithoutTheFocusItTakesItAgain()
    {
        hideByTurningToAnother();
        turnTo(m_mail);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.isViewable(m_window), patience);
        m_desktop.activate(m_window);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.activeWindow(), m_window, patience);
    }

    void goingToAndFroManyTimesEndsRight()
    {
        for (int time = 0; time < 10; ++time) {
            turnTo(m_other);
            turnTo(m_mail);
        }
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.isViewable(m_window), patience);
        QTest::qWait(afterTheGrace); // nothing may happen
        QVERIFY(m_desktop.isViewable(m_window));
        QCOMPARE(m_desktop.activeWindow(), m_mail);
        hideByTurningToAnother();
    }

    void startingItAgainBringsTheWindowBackWithTheFocus()
    {
        hideByTurningToAnother();
        QProcess second;
        second.start(program(), QStringList());
        QVERIFY(second.waitForFinished());
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(m_desktop.isViewable(m_window), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop.activeWindow(), m_window, patience);
        QCOMPARE(m_kest->state(), QProcess::Running);
    }

    void closingTheWindowEndsTheProgram()
    {
        m_desktop.askToClose(m_window);
        QVERIFY(m_kest->waitForFinished());
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_kest->exitCode(), 0);
    }

    void aSignalEndsTheProgramInOrder_data()
    {
        QTest::addColumn<int>("signalNumber");
        QTest::newRow("terminate") << SIGTERM;
        QTest::newRow("interrupt") << SIGINT;
        QTest::newRow("hang up") << SIGHUP;
    }

    void aSignalEndsTheProgramInOrder()
    {
        QFETCH(int, signalNumber);
        QCOMPARE(::kill(static_cast<pid_t>(m_kest->processId()), signalNumber), 0);
        QVERIFY(m_kest->waitForFinished());
        QCOMPARE(m_kest->exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_kest->exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(TestCompanion)
#include "tst_companion.moc"
