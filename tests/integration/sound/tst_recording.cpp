#include "RecorderBench.h"

#include "platform/linux/sound/CaptureSession.h"
#include "platform/linux/sound/PulseContext.h"
#include "platform/linux/sound/PulseSound.h"
#include "support/VirtualMicrophone.h"

#include <QTest>

#include <atomic>
#include <cmath>
#include <memory>

using namespace kest;
using namespace kest::test;

/// What comes out of an ordinary recording, by the word of independent tools.
class RecordingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileIsAnOrdinaryAacFile();
    void fileLastsExactlyTheCapturedSamples();
    void whoListensLateIsToldThatItHasBegun();
    void anEndWhenItWasAboutToConnectIsInOrder();
    void aProgramThatStandsStillWhereNothingWasToBeReadLosesNothing();
};

namespace {

/// Holds the thread up once, in the worst moment: it has just seen that nothing is there to be read.
class Standstill : public PulseReader
{
public:
    int readingInterval() const override { return 1000; }
    void everythingRead(MonotonicTime) override
    {
        if (m_isDue.exchange(false))
            QTest::qSleep(milliseconds);
    }
    void setDue() { m_isDue = true; }
    bool isDue() const { return m_isDue; }

    static constexpr int milliseconds = 3000;

private:
    std::atomic<bool> m_isDue = false;
};

} // namespace

void RecordingTest::fileIsAnOrdinaryAacFile()
{
    const VirtualMicrophone microphone(sine(440, 0.5));
    RecorderBench bench;
    QVERIFY(bench.recordFor(0.6));
    const FileURL file = bench.recorder->url();
    QCOMPARE(probe(file, QStringLiteral("stream=codec_name")), "aac");
    QCOMPARE(probe(file, QStringLiteral("stream=profile")), "LC");
    QCOMPARE(probe(file, QStringLiteral("stream=channels")), "1");
    QCOMPARE(probe(file, QStringLiteral("stream=sample_rate")), "44100");
    QCOMPARE(probe(file, QStringLiteral("format_tags=major_brand")), "M4A");
    const QList<QByteArray> boxes = outermostBoxes(file);
    QVERIFY(boxes.indexOf("moov") >= 0);
    QVERIFY(boxes.indexOf("moov") < boxes.indexOf("mdat"));
    QVERIFY(!boxes.contains("moof"));
    QFile opened(file.path());
    QVERIFY(opened.open(QIODevice::ReadOnly));
    QVERIFY(!opened.readAll().contains("mvex"));
}

void RecordingTest::fileLastsExactlyTheCapturedSamples()
{
    const VirtualMicrophone microphone(sine(440, 0.5));
    RecorderBench bench;
    for (const double seconds : {0.1, 0.3, 1.0}) {
        QVERIFY(bench.recordFor(seconds));
        QCOMPARE(probedSamples(bench.recorder->url()), std::llround(bench.recorder->currentTime() * 44100));
    }
}

// The first samples may come between the recording's beginning and the moment in which somebody listens.
void RecordingTest::whoListensLateIsToldThatItHasBegun()
{
    constexpr int patience = 15'000; // ms
    const VirtualMicrophone microphone(sine(440, 0.5));
    const auto context = std::make_shared<PulseContext>(QStringLiteral("Kest"), PulseSoundOptions().pulsePlugin);
    const auto session = CaptureSession::start(context);
    session->resume();
    QTRY_VERIFY_WITH_TIMEOUT(session->capturedSamples() > 0, patience);
    std::atomic<int> told = 0;
    session->setEvents({.captureStarted = [&told] { ++told; }, .troubleOccurred = {}, .inputConditionChanged = {}});
    QTRY_COMPARE_WITH_TIMEOUT(told.load(), 1, patience);
    const qint64 then = session->capturedSamples();
    QTRY_VERIFY_WITH_TIMEOUT(session->capturedSamples() > then, patience);
    session->stop();
    QTRY_VERIFY_WITH_TIMEOUT(session->hasEnded(), patience);
    QCOMPARE(told.load(), 1);
}

void RecordingTest::anEndWhenItWasAboutToConnectIsInOrder()
{
    bool connected = true;
    // A machine that is held up may connect before; then it is tried again.
    for (int tries = 0; connected && tries < 20; ++tries) {
        auto context = std::make_unique<PulseContext>(QStringLiteral("Kest"), PulseSoundOptions().pulsePlugin);
        PulseThread &thread = context->thread();
        // The first keeps the thread from the second until the end is posted too; behind the second it is time to connect.
        thread.post([] { QTest::qSleep(20); });
        thread.post([&] {
            QTest::qSleep(100);
            connected = thread.api();
        });
        context.reset();
    }
    QVERIFY(!connected);
}

void RecordingTest::aProgramThatStandsStillWhereNothingWasToBeReadLosesNothing()
{
    constexpr int patience = 15'000; // ms
    const VirtualMicrophone microphone(sine(440, 0.5));
    Standstill standstill;
    const auto context = std::make_shared<PulseContext>(QStringLiteral("Kest"), PulseSoundOptions().pulsePlugin);
    context->thread().post([&] { context->thread().addReader(&standstill); });
    const auto session = CaptureSession::start(context);
    session->resume();
    QTRY_VERIFY_WITH_TIMEOUT(session->capturedSamples() > 0, patience);
    const qint64 before = session->capturedSamples();
    standstill.setDue();
    QTRY_VERIFY_WITH_TIMEOUT(!standstill.isDue(), patience);
    constexpr qint64 missed = Standstill::milliseconds * 44'100LL / 1000;
    QTRY_VERIFY_WITH_TIMEOUT(session->hasEnded() || session->capturedSamples() > before + missed, patience);
    QVERIFY(!session->hasEnded());
    session->stop();
    QTRY_VERIFY_WITH_TIMEOUT(session->hasEnded(), patience);
    context->thread().post([&] { context->thread().removeReader(&standstill); });
}

QTEST_GUILESS_MAIN(RecordingTest)
#include "tst_recording.moc"
