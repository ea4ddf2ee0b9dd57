#include "gui/app/AppHouse.h"

#include <QCoreApplication>
#include <QTest>

using namespace kest;
using kest::test::AppHouse;

/// When the computer is kept awake.
class TestRecordingSleep : public QObject
{
    Q_OBJECT

    std::unique_ptr<AppHouse> m_house;

    bool isHeld() const
    {
        QCoreApplication::processEvents();
        return !m_house->sleep().held.isEmpty();
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<AppHouse>();
        m_house->launch();
        QVERIFY(!isHeld());
        m_house->window().audioRecordingRecord();
        QVERIFY(isHeld());
    }

    void cleanup() { m_house.reset(); }

    void aPauseLetsGoAndResumeHoldsAgain()
    {
        QCOMPARE(m_house->sleep().held, QStringLiteral("A message is being recorded"));
        m_house->window().audioRecordingPauseResume();
        QVERIFY(!isHeld());
        m_house->window().audioRecordingPauseResume();
        QVERIFY(isHeld());
    }

    void stopLetsGo()
    {
        m_house->window().audioRecordingStop();
        QVERIFY(!isHeld());
    }

    void stopWhilePausedHoldsNothing()
    {
        m_house->window().audioRecordingPauseResume();
        m_house->window().audioRecordingStop();
        QVERIFY(!isHeld());
    }

    void aTroubleThatEndsTheRecordingLetsGo()
    {
        Q_EMIT m_house->recorders().last()->troubleOccurred(RecordingTrouble::MicrophoneLost, {});
        QVERIFY(!isHeld());
    }

    void aHiddenWindowKeepsHolding()
    {
        m_house->workspace().activate(QStringLiteral("XTerm"));
        QVERIFY(!m_house->isShown());
        QVERIFY(isHeld());
    }
};

QTEST_MAIN(TestRecordingSleep)
#include "tst_recordingsleep.moc"
