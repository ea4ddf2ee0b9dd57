#include "RecorderBench.h"
#include "TeeEncoder.h"

#include "support/VirtualMicrophone.h"

#include <QProcess>
#include <QTemporaryFile>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstring>
#include <utility>

using namespace kest;
using namespace kest::test;

namespace {

class OpenTemporaryFile : public QTemporaryFile
{
public:
    OpenTemporaryFile() { open(); }
};

bool isPipeWire()
{
    return qgetenv("KEST_TEST_SOUND") == "pipewire";
}

/// How long what is said may be on its way through the virtual microphone, which PipeWire's tells nobody.
int guardMilliseconds()
{
    return isPipeWire() ? 700 : 150;
}

/// How many streams the server records for.
int recorders()
{
    return tellSoundServer("recorders").value(u"count").toInt();
}

/// How often the count does not go on. A virtual microphone that just began may give silence first.
int jumpsIn(const std::vector<float> &samples)
{
    const auto silent = [](float sample) { return sample == 0.0F; };
    const auto begin = std::find_if_not(samples.begin(), samples.end(), silent);
    int jumps = 0;
    for (auto sample = begin; sample != samples.end() && sample + 1 != samples.end(); ++sample)
        jumps += counterValue(sample[1]) != (counterValue(*sample) + 1) % counterPeriod;
    return jumps;
}

/// Another program that records the same microphone all the while.
class Witness
{
public:
    Witness()
    {
        m_program.setStandardOutputFile(m_heard.fileName());
        m_program.start(QStringLiteral("parec"),
                        {QStringLiteral("--raw"), QStringLiteral("--format=float32le"), QStringLiteral("--rate=44100"),
                         QStringLiteral("--channels=1"), QStringLiteral("--latency-msec=20")});
        m_program.waitForStarted();
    }

    std::vector<float> samples()
    {
        m_program.terminate();
        m_program.waitForFinished();
        const QByteArray raw = m_heard.readAll();
        std::vector<float> heard(size_t(raw.size()) / sizeof(float));
        std::memcpy(heard.data(), raw.constData(), heard.size() * sizeof(float));
        return heard;
    }

private:
    OpenTemporaryFile m_heard;
    QProcess m_program;
};

/// The recorded time, once it stands still: the last of it is captured a little after the pause.
double timeThatStands(const AudioFileRecorder &recorder)
{
    double last = -1;
    const auto stands = [&] {
        const double before = std::exchange(last, recorder.currentTime());
        QTest::qWait(guardMilliseconds());
        return before == last;
    };
    if (!QTest::qWaitFor(stands, 60'000))
        QTest::qFail("the recorded time goes on", __FILE__, __LINE__);
    return last;
}

/// A recording of a microphone that speaks low, or loud while it is told to.
struct TwoVoices {
    std::atomic<bool> loud = false;
    VirtualMicrophone microphone{[this](qint64, int) { return loud ? 0.9F : 0.1F; }};
    std::shared_ptr<TeeEncoder> tee = std::make_shared<TeeEncoder>();
    RecorderBench bench{tee};

    qint64 loudSamples() const
    {
        return std::count_if(tee->samples().begin(), tee->samples().end(), [](float sample) { return sample > 0.5F; });
    }
};

} // namespace

/// Pauses and presses: which samples are in the recording. The microphone says
/// numbers, so every sample that is lost or doubled shows.
class RecordingPausesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aHundredPausesLoseAndDoubleNothing();
    void nothingBetweenPauseAndResumeIsKept();
    void nothingSaidAfterRecordIsLost();
    void aPressThatIsTakenBackClosesTheMicrophone();
    void stopKeepsWhatWasSaidBefore();
    void commandsOutOfOrderDoNothing();
    void takenNameIsNotOverwritten();
};

void RecordingPausesTest::initTestCase()
{
    tellSoundServer("force_rate", {{QStringLiteral("rate"), 44100}});
}

void RecordingPausesTest::aHundredPausesLoseAndDoubleNothing()
{
    constexpr int pauses = 100;
    // A FIFO that is always full gives PulseAudio ten minutes in one. PipeWire keeps its own time. Far faster, PulseAudio
    // leaves samples out for those who do not read at once, and a recorder reads ten times a second.
    const double seconds = isPipeWire() ? 25 : 600;
    const VirtualMicrophone microphone(counter(), 1, isPipeWire() ? 1.5 : 10);
    Witness witness;
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    AudioFileRecorder &recorder = bench.make();
    QVERIFY(recorder.prepareToRecord());
    for (int i = 1; i <= pauses; ++i) {
        QVERIFY(recorder.record());
        QVERIFY(bench.waitForCapture(seconds * i / pauses));
        recorder.pause();
        QTest::qWait(isPipeWire() ? 30 : 5);
    }
    QVERIFY(bench.stopRecording());
    QVERIFY(bench.trouble->isEmpty());

    const std::vector<float> &samples = tee->samples();
    QCOMPARE(qint64(samples.size()), std::llround(recorder.currentTime() * 44100));
    QCOMPARE(probedSamples(recorder.url()), qint64(samples.size()));
    QVERIFY(double(samples.size()) >= seconds * 44100);
    // What the virtual microphone itself left out, another recorder heard left out too.
    const int jumps = jumpsIn(samples);
    const int allowed = pauses - 1 + jumpsIn(witness.samples());
    QVERIFY2(jumps <= allowed, qPrintable(QStringLiteral("%1 jumps, %2 allowed").arg(jumps).arg(allowed)));
}

void RecordingPausesTest::nothingBetweenPauseAndResumeIsKept()
{
    TwoVoices scene;
    QVERIFY(scene.bench.startRecording(0.5));
    AudioFileRecorder &recorder = *scene.bench.recorder;
    recorder.pause();
    const double before = timeThatStands(recorder);
    scene.loud = true;
    QTest::qWait(400);
    QCOMPARE(recorder.currentTime(), before);
    scene.loud = false;
    QTest::qWait(guardMilliseconds());
    recorder.record();
    QVERIFY(scene.bench.waitForCapture(before + 0.5));
    QVERIFY(scene.bench.stopRecording());
    QCOMPARE(scene.loudSamples(), 0);
}

void RecordingPausesTest::nothingSaidAfterRecordIsLost()
{
    const VirtualMicrophone microphone(counter());
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    AudioFileRecorder &recorder = bench.make();
    QVERIFY(bench.waitUntilConnected());
    const int others = recorders();
    bench.sound.recorderFactory->warmUp(); // the button goes down
    QTRY_COMPARE_WITH_TIMEOUT(recorders(), others + 1, 60'000);
    QTest::qWait(120); // and up
    const qint64 pressed = microphone.frames();
    QVERIFY(recorder.prepareToRecord());
    QVERIFY(recorder.record());
    QVERIFY(bench.waitForCapture(0.3));
    QVERIFY(bench.stopRecording());
    // The microphone speaks in blocks; the one on its way at the press may count as said before or after it.
    int missing = counterValue(tee->samples().front()) - int(pressed % counterPeriod);
    if (missing > counterPeriod / 2)
        missing -= counterPeriod;
    // PipeWire's virtual microphone leaves out some of what is said when the machine is busy.
    const int unsure = isPipeWire() ? 44100 * guardMilliseconds() / 1000 : VirtualMicrophone::blockFrames;
    QVERIFY2(missing <= unsure, QByteArray::number(missing).constData());
    QVERIFY2(missing > -44100 * guardMilliseconds() / 1000, QByteArray::number(missing).constData());
}

void RecordingPausesTest::aPressThatIsTakenBackClosesTheMicrophone()
{
    const VirtualMicrophone microphone(counter());
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    const int others = recorders();
    bench.sound.recorderFactory->warmUp(); // the button goes down, and the pointer leaves it
    QTRY_COMPARE_WITH_TIMEOUT(recorders(), others + 1, 60'000);
    QTRY_COMPARE_WITH_TIMEOUT(recorders(), others, 60'000);
    QVERIFY(bench.recordFor(0.3));
}

void RecordingPausesTest::stopKeepsWhatWasSaidBefore()
{
    TwoVoices scene;
    QVERIFY(scene.bench.startRecording(0.5));
    scene.loud = true;
    QTest::qWait(isPipeWire() ? guardMilliseconds() : 500); // the last of it is still on its way when Stop is pressed
    QVERIFY(scene.bench.stopRecording());
    const qint64 last = scene.loudSamples();
    QVERIFY2(last > 44100 / (isPipeWire() ? 100 : 4), QByteArray::number(last).constData());
}

void RecordingPausesTest::commandsOutOfOrderDoNothing()
{
    const VirtualMicrophone microphone(sine(440, 0.3));
    RecorderBench bench;
    AudioFileRecorder &recorder = bench.make();
    recorder.pause();
    QVERIFY(!recorder.record());
    recorder.stop();
    QCOMPARE(recorder.currentTime(), 0.0);
    QVERIFY(recorder.prepareToRecord());
    QVERIFY(!recorder.prepareToRecord());
    QVERIFY(recorder.record());
    QVERIFY(bench.waitForCapture(0.2));
    recorder.stop();
    recorder.stop();
    QVERIFY(recorder.isFinishing());
    QVERIFY(!recorder.record());
    QVERIFY(bench.waitUntilFinished());
    QVERIFY(!recorder.isFinishing());
    QCOMPARE(bench.finished->size(), 1);
    QCOMPARE(bench.started->size(), 1);
}

void RecordingPausesTest::takenNameIsNotOverwritten()
{
    const VirtualMicrophone microphone(sine(440, 0.3));
    RecorderBench bench;
    QVERIFY(bench.recordFor(0.2));
    const FileURL first = bench.recorder->url();
    const qint64 samples = probedSamples(first);
    QVERIFY(bench.recordFor(0.4));
    QCOMPARE(bench.recorder->url().lastPathComponent(), QStringLiteral("message 2.m4a"));
    QCOMPARE(probedSamples(first), samples);
}

QTEST_GUILESS_MAIN(RecordingPausesTest)
#include "tst_recordingpauses.moc"
