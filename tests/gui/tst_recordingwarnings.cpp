#include "gui/WindowHouse.h"

#include "ui/controls/ReadoutField.h"

#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

const QString silent = QStringLiteral("No sound. Is “USB Mic” muted?");
const QString tooLoud = QStringLiteral("Too loud. Sit back, or turn down “USB Mic”.");
const QString neverHeard = QStringLiteral("Nothing was heard in this recording.");

} // namespace

/// What the window says of a recording while there is still time.
class TestRecordingWarnings : public QObject
{
    Q_OBJECT

    std::unique_ptr<WindowHouse> m_house;

    void hear(InputCondition condition) const
    {
        Q_EMIT m_house->recorders.last()->inputConditionChanged(condition, QStringLiteral("USB Mic"));
    }

    /// The recording's file has `bytes` when its time moves on by a second.
    void grow(qint64 bytes) const
    {
        m_house->recorders.last()->setFileSize(bytes);
        m_house->clock.advance(1);
        m_house->controller->audioRecordingUpdateTimeWithTimer();
    }

    QString notice() const { return m_house->notice(); }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
        m_house->record();
    }

    void cleanup() { m_house.reset(); }

    void aSilentRecordingIsSaidWithTheMicrophonesName()
    {
        hear(InputCondition::Silent);
        QCOMPARE(notice(), silent);
        QCOMPARE(m_house->find<ReadoutField>(QStringLiteral("Notice"))->image(), QStringLiteral("notice"));
    }

    void theWarningGoesWhenSoundComes()
    {
        hear(InputCondition::Silent);
        hear(InputCondition::Heard);
        QCOMPARE(notice(), QStringLiteral("Recording"));
    }

    void clippingIsSaidAndGoesByItself()
    {
        hear(InputCondition::Clipping);
        QCOMPARE(notice(), tooLoud);
        hear(InputCondition::Heard);
        QCOMPARE(notice(), QStringLiteral("Recording"));
    }

    void aPauseTakesTheWarningAway()
    {
        hear(InputCondition::Silent);
        m_house->click(QStringLiteral("Pause"));
        hear(InputCondition::Unknown);
        QCOMPARE(notice(), QStringLiteral("Paused"));
    }

    void aMicrophoneWithoutANameIsCalledTheMicrophone()
    {
        Q_EMIT m_house->recorders.last()->inputConditionChanged(InputCondition::Silent, {});
        QCOMPARE(notice(), QStringLiteral("No sound. Is the microphone muted?"));
        Q_EMIT m_house->recorders.last()->inputConditionChanged(InputCondition::Clipping, {});
        QCOMPARE(notice(), QStringLiteral("Too loud. Sit back, or turn the microphone down."));
    }

    void aTroubleStandsBeforeAWarning()
    {
        hear(InputCondition::Silent);
        Q_EMIT m_house->recorders.last()->troubleOccurred(RecordingTrouble::DiskFull, {});
        QCOMPARE(notice(), QStringLiteral("The disk is full. The recording so far is kept."));
    }

    void aRecordingInWhichNothingWasHeardIsSaidToBeSo()
    {
        hear(InputCondition::Silent);
        m_house->click(QStringLiteral("Stop"));
        hear(InputCondition::Unknown);
        QCOMPARE(notice(), neverHeard);
        m_house->click(QStringLiteral("Record"));
        QCOMPARE(notice(), QStringLiteral("Recording"));
    }

    void aRecordingThatEndsInSilenceIsReadyToSend()
    {
        hear(InputCondition::Heard);
        hear(InputCondition::Silent);
        m_house->click(QStringLiteral("Stop"));
        QCOMPARE(notice(), QStringLiteral("Recorded, ready to send"));
    }

    void aPreparedMessageIsNotBlamedForASilentRecording()
    {
        hear(InputCondition::Silent);
        m_house->click(QStringLiteral("Stop"));
        m_house->controller->attachmentChosen(QStringLiteral("Greeting.txt"));
        QCOMPARE(notice(), QStringLiteral("“Greeting.txt” is ready to send"));
    }

    void eachSizeIsSaidOnceAndQuietly()
    {
        grow(4'999'999);
        QCOMPARE(notice(), QStringLiteral("Recording"));
        grow(5'000'000);
        QCOMPARE(notice(), QStringLiteral("5 MB by now. Many mail servers stop at 18 MB."));
        QCOMPARE(m_house->find<ReadoutField>(QStringLiteral("Notice"))->image(), QString());
        m_house->controller->notices().withdraw(NoticePlace::Subject::Size);
        grow(9'000'000);
        QCOMPARE(notice(), QStringLiteral("Recording"));
        grow(10'000'001);
        QCOMPARE(notice(), QStringLiteral("10 MB by now. Many mail servers stop at 18 MB."));
        grow(18'000'000);
        QCOMPARE(notice(), QStringLiteral("18 MB by now. Many mail servers take no more."));
        m_house->controller->notices().withdraw(NoticePlace::Subject::Size);
        grow(40'000'000);
        QCOMPARE(notice(), QStringLiteral("Recording"));
    }

    void theNextRecordingIsMeasuredAnew()
    {
        grow(5'000'000);
        m_house->click(QStringLiteral("Stop"));
        QCOMPARE(notice(), QStringLiteral("Recorded, ready to send"));
        m_house->record();
        grow(5'000'000);
        QCOMPARE(notice(), QStringLiteral("5 MB by now. Many mail servers stop at 18 MB."));
    }

    void aRecorderThatCouldNotBeMadeIsNotAsked()
    {
        m_house->click(QStringLiteral("Stop"));
        m_house->recorders.refuses = true;
        m_house->record();
        m_house->clock.advance(1);
        m_house->controller->audioRecordingUpdateTimeWithTimer();
        QCOMPARE(notice(), QStringLiteral("The recording could not be written."));
    }
};

QTEST_MAIN(TestRecordingWarnings)
#include "tst_recordingwarnings.moc"
