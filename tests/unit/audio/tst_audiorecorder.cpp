#include "audio/AudioRecorder.h"
#include "fakes/FakeAudioFileRecorder.h"
#include "fakes/FakeClock.h"

#include <QDateTime>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace kest::test;

class TestAudioRecorder : public QObject
{
    Q_OBJECT

private:
    FakeClock m_clock;
    FakeAudioFileRecorderFactory m_factory;
    std::unique_ptr<AudioRecorder> m_recorder;
    const FolderURL m_folder = FileURL::fromPath(QStringLiteral("/nowhere/Kest"));

    void prepare() { m_recorder->prepareToRecordToDirectory(m_folder, QStringLiteral("a.m4a")); }

private Q_SLOTS:
    void init()
    {
        m_recorder.reset(); // it notes its end in the factory
        m_clock = FakeClock();
        m_factory = FakeAudioFileRecorderFactory();
        m_factory.createsFiles = false;
        m_recorder = std::make_unique<AudioRecorder>(m_factory, m_clock);
    }

    void isNeitherStoppedNorPausedWhenNew()
    {
        QVERIFY(!m_recorder->recordingStopped());
        QVERIFY(!m_recorder->recordingPaused());
        QVERIFY(!m_recorder->recorder());
        QVERIFY(m_recorder->dirURL().isEmpty());
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:00"));
    }

    void asksForMonoAacOfHighQuality()
    {
        prepare();
        const AudioRecorderSettings settings = m_factory.last()->settings();
        QCOMPARE(settings.formatID, 1633772320U);
        QCOMPARE(settings.encoderQuality, 64);
        QCOMPARE(settings.numberOfChannels, 1);
        QCOMPARE(settings.sampleRate, 44100.0F);
    }

    void preparesWithMeteringAndWithoutAnErrorSlot()
    {
        prepare();
        QCOMPARE(m_factory.calls, QStringList({QStringLiteral("meteringOn"), QStringLiteral("prepare")}));
        QVERIFY(!m_factory.askedForError);
        QVERIFY(m_recorder->recordingStopped());
        QVERIFY(!m_recorder->recordingPaused());
        QCOMPARE(m_recorder->dirURL(), m_folder);
        QCOMPARE(m_recorder->recordingURL().path(), QStringLiteral("/nowhere/Kest/a.m4a"));
        QCOMPARE(m_recorder->recorder()->url(), m_recorder->recordingURL());
    }

    void showsNoTimeAndSilenceWhenOnlyPrepared()
    {
        prepare();
        m_factory.last()->setAveragePower(0, -10.0F);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("--:--"));
        QCOMPARE(m_recorder->recordingLevel(), -160.0);
        QVERIFY(!m_factory.calls.contains(QStringLiteral("updateMeters")));
    }

    void takesTheRecordersLengthAsBaseAtTheStart()
    {
        prepare();
        m_factory.last()->setCurrentTime(2.5);
        m_recorder->recordMessage();
        QCOMPARE(m_recorder->previousRecordingLength(), 2.5);
        QCOMPARE(m_recorder->recordingStartResumeDate(), m_clock.now());
        QVERIFY(!m_recorder->recordingStopped());
        QVERIFY(!m_recorder->recordingPaused());
    }

    void pauseLeavesBaseDateAndStoppedAlone()
    {
        prepare();
        m_recorder->recordMessage();
        const QDateTime started = m_recorder->recordingStartResumeDate();
        m_clock.advance(4.0);
        m_factory.last()->setCurrentTime(4.0);
        m_recorder->pauseMessage();
        QVERIFY(m_recorder->recordingPaused());
        QVERIFY(!m_recorder->recordingStopped());
        QCOMPARE(m_recorder->recordingStartResumeDate(), started);
        QCOMPARE(m_recorder->previousRecordingLength(), 0.0);
    }

    void countsOnWhilePaused()
    {
        prepare();
        m_recorder->recordMessage();
        m_recorder->pauseMessage();
        m_clock.advance(5.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:05"));
    }

    void resumeContinuesFromTheRecordersLength()
    {
        prepare();
        m_recorder->recordMessage();
        m_clock.advance(10.0);
        m_factory.last()->setCurrentTime(10.0);
        m_recorder->pauseMessage();
        m_clock.advance(30.0);
        m_recorder->resumeMessage();
        QVERIFY(!m_recorder->recordingPaused());
        m_clock.advance(5.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:15"));
    }

    void aClockThatIsSetChangesNoTime()
    {
        prepare();
        m_recorder->recordMessage();
        m_clock.advance(3.0);
        m_clock.setNow(m_clock.now().addDays(-1));
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:03"));
        m_factory.last()->setCurrentTime(3.0);
        m_recorder->pauseMessage();
        m_recorder->resumeMessage();
        QCOMPARE(m_recorder->recordingStartResumeDate(), m_clock.now());
        m_clock.setNow(m_clock.now().addDays(2));
        m_clock.advance(4.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:07"));
    }

    void aStartDateThatIsGivenIsCountedFrom()
    {
        prepare();
        m_recorder->recordMessage();
        m_recorder->setRecordingStartResumeDate(m_clock.now().addSecs(-12));
        m_clock.advance(1.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:13"));
        m_recorder->setRecordingStartResumeDate({});
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:00"));
    }

    void resumeDoesNotTouchTheStoppedFlag()
    {
        prepare();
        m_recorder->resumeMessage();
        QVERIFY(m_recorder->recordingStopped());
        QCOMPARE(m_factory.calls.last(), QStringLiteral("record"));
    }

    void passesOutOfOrderCallsThrough()
    {
        prepare();
        m_recorder->pauseMessage();
        m_recorder->stopRecording();
        m_recorder->stopRecording();
        QCOMPARE(m_factory.calls.mid(2), QStringList({QStringLiteral("pause"), QStringLiteral("stop"),
                                                      QStringLiteral("finished"), QStringLiteral("stop")}));
    }

    void keepsTheFileAfterTheStop()
    {
        prepare();
        m_recorder->recordMessage();
        m_recorder->pauseMessage();
        m_recorder->stopRecording();
        QVERIFY(m_recorder->recordingStopped());
        QVERIFY(!m_recorder->recordingPaused());
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("--:--"));
        QCOMPARE(m_recorder->recordingLevel(), -160.0);
        QCOMPARE(m_recorder->recorder()->url().path(), QStringLiteral("/nowhere/Kest/a.m4a"));
        QCOMPARE(m_recorder->dirURL(), m_folder);
    }

    void time_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << 0.0 << "00:00";
        QTest::newRow("rounds down") << 0.4 << "00:00";
        QTest::newRow("half rounds up") << 0.5 << "00:01";
        QTest::newRow("last moment before sixty") << 59.499 << "00:59";
        QTest::newRow("sixty is required") << 59.5 << "00:60";
        QTest::newRow("still sixty") << 59.6 << "00:60";
        QTest::newRow("full minute") << 60.0 << "01:00";
        QTest::newRow("sixty again") << 119.9 << "01:60";
        QTest::newRow("usual") << 187.0 << "03:07";
        QTest::newRow("minutes are not capped") << 6000.0 << "100:00";
    }

    void time()
    {
        QFETCH(double, seconds);
        prepare();
        m_recorder->recordMessage();
        m_clock.advance(seconds);
        QTEST(m_recorder->recordingTime(), "text");
        QCOMPARE(m_recorder->currentRecordingLength(), seconds);
    }

    // 2^24 + 1 minutes do not fit a single-precision number: 2^24 is what remains.
    void minutesAreSinglePrecision()
    {
        m_recorder->setPreviousRecordingLength(16777217.0 * 60.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("16777216:60"));
    }

    // 60 x 2236963 lies above 2^27, where single precision knows only multiples of 16.
    void theProductIsSinglePrecision()
    {
        const double minutes = 2236963.0;
        m_recorder->setPreviousRecordingLength(minutes * 60.0);
        const int seconds = 134217780 - static_cast<int>(static_cast<double>(60.0F * 2236963.0F));
        QVERIFY(seconds != 0);
        QCOMPARE(m_recorder->recordingTime(), QString::asprintf("2236963:%02d", seconds));
    }

    void level_data()
    {
        QTest::addColumn<float>("left");
        QTest::addColumn<float>("right");
        QTest::addColumn<double>("level");
        QTest::newRow("mono") << -20.0F << -160.0F << -20.0;
        QTest::newRow("second channel just above silence")
            << -20.0F << -159.9F << (-20.0 + static_cast<double>(-159.9F)) * 0.5;
        QTest::newRow("stereo") << -20.0F << -30.0F << -25.0;
        QTest::newRow("not a number is not greater") << -20.0F << std::numeric_limits<float>::quiet_NaN() << -20.0;
        QTest::newRow("not clamped") << 6.0F << -160.0F << 6.0;
        QTest::newRow("below silence") << -200.0F << -161.0F << -200.0;
    }

    void level()
    {
        QFETCH(float, left);
        QFETCH(float, right);
        prepare();
        m_recorder->recordMessage();
        m_factory.last()->setAveragePower(0, left);
        m_factory.last()->setAveragePower(1, right);
        QTEST(m_recorder->recordingLevel(), "level");
        QCOMPARE(m_factory.calls.last(), QStringLiteral("updateMeters"));
    }

    void goesOnWithoutARecorder()
    {
        m_factory.refuses = true;
        prepare();
        QVERIFY(!m_recorder->recorder());
        QVERIFY(m_recorder->recordingStopped());
        QCOMPARE(m_recorder->recordingLevel(), -160.0);
        m_recorder->recordMessage();
        m_clock.advance(7.0);
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:07"));
        QCOMPARE(m_recorder->recordingLevel(), 0.0);
        m_recorder->pauseMessage();
        QVERIFY(m_recorder->recordingPaused());
        m_recorder->resumeMessage();
        QCOMPARE(m_recorder->recordingTime(), QStringLiteral("00:00"));
        m_recorder->stopRecording();
        QVERIFY(m_recorder->recordingStopped());
        QCOMPARE(m_recorder->recordingURL().path(), QStringLiteral("/nowhere/Kest/a.m4a"));
    }

    void aTroubleWhilePreparingIsPassedOn()
    {
        qRegisterMetaType<RecordingTrouble>();
        QSignalSpy spy(m_recorder.get(), &AudioRecorder::troubleOccurred);
        m_factory.troubleAtPrepare = RecordingTrouble::NoMicrophone;
        prepare();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().first().value<RecordingTrouble>(), RecordingTrouble::NoMicrophone);
    }

    void theEndOfTheFileIsPassedOn()
    {
        QSignalSpy spy(m_recorder.get(), &AudioRecorder::finished);
        m_factory.finishDelay = -1;
        prepare();
        m_recorder->recordMessage();
        m_recorder->stopRecording();
        QCOMPARE(spy.size(), 0);
        m_factory.last()->finish(false);
        QCOMPARE(spy, QList<QVariantList>({{false}}));
    }

    void dropsItsRecorderWithoutStoppingIt()
    {
        prepare();
        m_recorder->recordMessage();
        m_recorder.reset();
        QVERIFY(!m_factory.calls.contains(QStringLiteral("stop")));
        QCOMPARE(m_factory.calls.last(), QStringLiteral("~"));
    }
};

QTEST_GUILESS_MAIN(TestAudioRecorder)
#include "tst_audiorecorder.moc"
