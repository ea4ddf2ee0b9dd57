#include "RecorderBench.h"
#include "TeeEncoder.h"

#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <cmath>
#include <algorithm>
#include <stdexcept>

using namespace kest;
using namespace kest::test;

namespace {

constexpr qint64 toldWithinMilliseconds = 2000;
constexpr qint64 longestBlocked = 1000; // ms; promised to the person

} // namespace

/// Every trouble is told in time, and what was captured is kept.
class RecordingTroubleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void missingServerIsTold();
    void silentServerIsToldAndBlocksNobody();
    void missingMicrophoneIsTold();
    void removedMicrophoneIsToldAndTheTakeKept();
    void noOtherMicrophoneIsTakenSilently();
    void newDefaultMicrophoneDoesNotTakeOver();
    void moveByThePersonIsRefused();
    void killedServerIsToldAndTheTakeKept();
    void stalledServerIsToldAndTheTakeKept();
    void serverThatComesBackIsUsedAgain();
    void folderThatVanishedIsTold();
    void missingEncoderIsTold();

private:
    void verifyTold(RecorderBench &bench, RecordingTrouble expected);
    void verifyTakeKept(RecorderBench &bench, double seconds);
    void verifyGoesOnWithTheFirst(RecorderBench &bench, const TeeEncoder &captured);
    static void verifyNothingOfTheOther(const TeeEncoder &captured);
    static std::unique_ptr<VirtualMicrophone> addLoudMicrophone();

    QElapsedTimer m_since;
    std::unique_ptr<VirtualMicrophone> m_microphone;
};

void RecordingTroubleTest::init()
{
    m_microphone = std::make_unique<VirtualMicrophone>(sine(440, 0.3));
}

void RecordingTroubleTest::cleanup()
{
    m_microphone.reset();
    tellSoundServer("resume");
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
}

void RecordingTroubleTest::verifyTold(RecorderBench &bench, RecordingTrouble expected)
{
    QTRY_COMPARE_WITH_TIMEOUT(bench.trouble->size(), 1, 60'000);
    const qint64 elapsed = m_since.elapsed();
    QVERIFY(bench.waitUntilFinished()); // first: what comes after a failure here looks at it
    QCOMPARE(bench.trouble->first().first().value<RecordingTrouble>(), expected);
    QVERIFY2(elapsed < toldWithinMilliseconds, QByteArray::number(elapsed).constData());
    QCOMPARE(bench.trouble->size(), 1);
    QCOMPARE(bench.finished->size(), 1);
}

void RecordingTroubleTest::verifyTakeKept(RecorderBench &bench, double seconds)
{
    QVERIFY(bench.finished->first().first().toBool());
    QVERIFY(bench.recorder->currentTime() >= seconds);
    QVERIFY(!outermostBoxes(bench.recorder->url()).contains("moof"));
    QCOMPARE(probedSamples(bench.recorder->url()), std::llround(bench.recorder->currentTime() * 44100));
}

void RecordingTroubleTest::verifyGoesOnWithTheFirst(RecorderBench &bench, const TeeEncoder &captured)
{
    QVERIFY(bench.waitForCapture(bench.recorder->currentTime() + 1.0));
    QVERIFY(bench.stopRecording());
    QVERIFY(bench.trouble->isEmpty());
    verifyTakeKept(bench, 1.5);
    verifyNothingOfTheOther(captured);
    const std::vector<float> samples = decoded(bench.recorder->url());
    const auto tail = samples.end() - std::min<std::ptrdiff_t>(4410, std::ssize(samples));
    QVERIFY2(std::any_of(tail, samples.end(), [](float sample) { return sample > 0.2F; }), "it ends in silence");
}

/// The first speaks with a peak of 0.3, the other with one of 0.9. Told by what was captured: the encoder overshoots where a
/// sound sets in, and a busy machine's virtual microphone stops and sets in again.
void RecordingTroubleTest::verifyNothingOfTheOther(const TeeEncoder &captured)
{
    QVERIFY(captured.samples().size() > 4410);
    const auto louder = [](float sample) { return std::fabs(sample) > 0.35F; };
    const auto found = std::count_if(captured.samples().begin(), captured.samples().end(), louder);
    QVERIFY2(found == 0, QByteArray::number(qint64(found)).constData());
}

std::unique_ptr<VirtualMicrophone> RecordingTroubleTest::addLoudMicrophone()
{
    const QByteArray fifo = tellSoundServer("add_source", {{QStringLiteral("name"), QStringLiteral("kest_other")},
                                                           {QStringLiteral("description"), QStringLiteral("USB Mic")}})
                                .value(u"fifo").toString().toLocal8Bit();
    return std::make_unique<VirtualMicrophone>(fifo, sine(3000, 0.9), 1);
}

void RecordingTroubleTest::missingServerIsTold()
{
    tellSoundServer("kill");
    RecorderBench bench;
    m_since.start();
    QVERIFY(bench.startRecording());
    verifyTold(bench, RecordingTrouble::NoSoundServer);
    QVERIFY(!bench.finished->first().first().toBool());
    QVERIFY(!QFile::exists(bench.recorder->url().path()));
}

void RecordingTroubleTest::silentServerIsToldAndBlocksNobody()
{
    tellSoundServer("stall");
    QElapsedTimer blocked;
    blocked.start();
    RecorderBench bench;
    m_since.start();
    QVERIFY(bench.startRecording());
    QVERIFY2(blocked.elapsed() < longestBlocked, "a stalled server held up the main thread");
    verifyTold(bench, RecordingTrouble::NoSoundServer);
    QVERIFY(!QFile::exists(bench.recorder->url().path()));
}

void RecordingTroubleTest::missingMicrophoneIsTold()
{
    tellSoundServer("remove_source", {{QStringLiteral("name"), QStringLiteral("kest_microphone")}});
    RecorderBench bench;
    m_since.start();
    QVERIFY(bench.startRecording());
    verifyTold(bench, RecordingTrouble::NoMicrophone);
    QVERIFY(!QFile::exists(bench.recorder->url().path()));
}

void RecordingTroubleTest::removedMicrophoneIsToldAndTheTakeKept()
{
    RecorderBench bench;
    QVERIFY(bench.startRecording(0.5));
    m_since.start();
    tellSoundServer("remove_source", {{QStringLiteral("name"), QStringLiteral("kest_microphone")}});
    verifyTold(bench, RecordingTrouble::MicrophoneLost);
    QCOMPARE(bench.trouble->first().at(1).toString(), QStringLiteral("Built-in Microphone"));
    verifyTakeKept(bench, 0.5);
}

void RecordingTroubleTest::noOtherMicrophoneIsTakenSilently()
{
    const auto other = addLoudMicrophone();
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    QVERIFY(bench.startRecording(0.5));
    m_since.start();
    tellSoundServer("remove_source", {{QStringLiteral("name"), QStringLiteral("kest_microphone")}});
    verifyTold(bench, RecordingTrouble::MicrophoneLost);
    verifyTakeKept(bench, 0.5);
    verifyNothingOfTheOther(*tee);
}

void RecordingTroubleTest::newDefaultMicrophoneDoesNotTakeOver()
{
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    QVERIFY(bench.startRecording(0.5));
    const auto other = addLoudMicrophone();
    tellSoundServer("set_default", {{QStringLiteral("name"), QStringLiteral("kest_other")}});
    verifyGoesOnWithTheFirst(bench, *tee);
}

void RecordingTroubleTest::moveByThePersonIsRefused()
{
    const auto other = addLoudMicrophone();
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    QVERIFY(bench.startRecording(0.5));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error,
                             tellSoundServer("move_recorders", {{QStringLiteral("name"), QStringLiteral("kest_other")}}));
    verifyGoesOnWithTheFirst(bench, *tee);
}

void RecordingTroubleTest::killedServerIsToldAndTheTakeKept()
{
    RecorderBench bench;
    QVERIFY(bench.startRecording(0.5));
    m_since.start();
    tellSoundServer("kill");
    verifyTold(bench, RecordingTrouble::SoundServerLost);
    verifyTakeKept(bench, 0.5);
}

void RecordingTroubleTest::stalledServerIsToldAndTheTakeKept()
{
    RecorderBench bench;
    QVERIFY(bench.startRecording(0.5));
    tellSoundServer("stall");
    m_since.start(); // the stop comes at the end of that request, which takes its time on a busy machine
    verifyTold(bench, RecordingTrouble::NoSound);
    verifyTakeKept(bench, 0.5);
}

void RecordingTroubleTest::serverThatComesBackIsUsedAgain()
{
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
    m_microphone = std::make_unique<VirtualMicrophone>(sine(440, 0.3));
    QVERIFY(bench.recordFor(0.3));
    verifyTakeKept(bench, 0.3);
}

void RecordingTroubleTest::folderThatVanishedIsTold()
{
    QTemporaryDir parent;
    QVERIFY(QDir(parent.path()).mkdir(QStringLiteral("gone")));
    RecorderBench bench(nullptr, parent.filePath(QStringLiteral("gone")).toLocal8Bit());
    AudioFileRecorder &recorder = bench.make();
    QVERIFY(QDir(parent.path()).rmdir(QStringLiteral("gone")));
    QVERIFY(!recorder.prepareToRecord());
    QVERIFY(!recorder.record());
    QTRY_COMPARE_WITH_TIMEOUT(bench.trouble->size(), 1, 60'000);
    QCOMPARE(bench.trouble->first().first().value<RecordingTrouble>(), RecordingTrouble::CannotWrite);
}

void RecordingTroubleTest::missingEncoderIsTold()
{
    RecorderBench bench(std::make_shared<EncoderLoader>(QByteArray("/nowhere/kest-encoder.so")));
    m_since.start();
    QVERIFY(bench.startRecording());
    verifyTold(bench, RecordingTrouble::EncoderMissing);
    QVERIFY(!QFile::exists(bench.recorder->url().path()));
}

QTEST_GUILESS_MAIN(RecordingTroubleTest)
#include "tst_recordingtrouble.moc"
