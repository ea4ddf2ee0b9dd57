#include "gui/app/AppHouse.h"

#include <QTest>

using namespace kest;
using kest::test::AppHouse;

namespace {

const QString stillRecording = QStringLiteral("Kest is still recording\n");

} // namespace

/// What the desktop is told of a recording while the window is hidden.
class TestHiddenWindow : public QObject
{
    Q_OBJECT

    std::unique_ptr<AppHouse> m_house;

    QString &notice() const { return m_house->workspace().notice; }
    void record() const { m_house->window().audioRecordingRecord(); }
    void turnTo(const QString &application) const { m_house->workspace().activate(application); }
    void turnToAnother() const { turnTo(QStringLiteral("XTerm")); }

    void lose() const
    {
        Q_EMIT m_house->recorders().last()->troubleOccurred(RecordingTrouble::MicrophoneLost, QStringLiteral("USB Mic"));
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<AppHouse>();
        m_house->launch();
    }

    void cleanup() { m_house.reset(); }

    void recordingGoesOn()
    {
        record();
        turnToAnother();
        QVERIFY(!m_house->isShown());
        QVERIFY(m_house->window().recordingActive());
        QVERIFY(!m_house->recorders().calls.contains(QStringLiteral("stop")));
        QVERIFY(notice().startsWith(stillRecording));
        turnTo(mailApplicationIdentifier);
        QVERIFY(notice().isEmpty());
    }

    void aPausedRecordingIsCalledPaused()
    {
        record();
        m_house->window().audioRecordingPauseResume();
        turnToAnother();
        QVERIFY(notice().startsWith(QStringLiteral("Kest’s recording is paused\n")));
    }

    void withoutARecordingNothingIsSaid()
    {
        turnToAnother();
        QVERIFY(notice().isEmpty());
    }

    void turningFromOneApplicationToAnotherSaysNothingAgain()
    {
        record();
        turnToAnother();
        notice().clear(); // the person put it away
        turnTo(QStringLiteral("XClock"));
        turnToAnother();
        QCOMPARE(notice(), QString());
        turnTo(mailApplicationIdentifier);
        turnToAnother();
        QVERIFY(notice().startsWith(stillRecording));
    }

    void startingItAgainAndTheEndTakeTheNoticeAway()
    {
        record();
        turnToAnother();
        m_house->delegate->activate();
        QVERIFY(m_house->isShown());
        QVERIFY(notice().isEmpty());
        turnToAnother();
        QVERIFY(!notice().isEmpty());
        m_house->delegate->applicationShouldTerminate();
        QVERIFY(notice().isEmpty());
    }

    void aTroubleTakesThePlaceOfTheNotice()
    {
        record();
        turnToAnother();
        lose();
        QVERIFY2(notice().startsWith(QStringLiteral("Kest’s recording has ended\n"
                                                    "The microphone went away. The recording is kept.")),
                 qPrintable(notice()));
        turnTo(mailApplicationIdentifier);
        QVERIFY(notice().isEmpty());
        QCOMPARE(m_house->window().notices().text(),
                 QStringLiteral("The microphone went away. The recording is kept."));
    }

    void aTroubleIsToldWhileTheWindowIsMinimizedToo()
    {
        record();
        QWidget *window = m_house->window().window();
        window->showMinimized();
        turnTo(mailApplicationIdentifier);
        lose();
        const QString told = notice();
        QVERIFY2(told.startsWith(QStringLiteral("Kest’s recording has ended\n")), qPrintable(told));
        turnTo(mailApplicationIdentifier);
        QCOMPARE(notice(), told);
        window->showNormal();
        turnTo(m_house->workspace().ownIdentifier());
        QVERIFY(notice().isEmpty());
    }

    void aWarningIsToldOnceForEveryHiding()
    {
        const QString muted = QStringLiteral("Kest is still recording\nNo sound. Is “USB Mic” muted?\n");
        const auto hear = [this](InputCondition condition) {
            Q_EMIT m_house->recorders().last()->inputConditionChanged(condition, QStringLiteral("USB Mic"));
        };
        record();
        hear(InputCondition::Silent);
        QCOMPARE(notice(), QString()); // the window says it
        turnToAnother();
        notice().clear();
        hear(InputCondition::Heard);
        hear(InputCondition::Silent);
        QVERIFY2(notice().startsWith(muted), qPrintable(notice()));
        notice().clear();
        hear(InputCondition::Heard);
        hear(InputCondition::Silent);
        QCOMPARE(notice(), QString());
        turnTo(mailApplicationIdentifier);
        turnToAnother();
        hear(InputCondition::Heard);
        hear(InputCondition::Silent);
        QVERIFY2(notice().startsWith(muted), qPrintable(notice()));
    }

    // The window said it; only the next recording goes on again.
    void aRecordingThatEndedBeforeIsNotSaidToGoOn()
    {
        record();
        lose();
        QVERIFY(notice().isEmpty());
        turnToAnother();
        QCOMPARE(notice(), QString());
        m_house->delegate->activate();
        m_house->window().audioRecordingStop();
        record();
        turnToAnother();
        QVERIFY(notice().startsWith(stillRecording));
    }
};

QTEST_MAIN(TestHiddenWindow)
#include "tst_hiddenwindow.moc"
