#include "platform/linux/sound/CaptureGate.h"
#include "platform/linux/sound/LevelMeter.h"
#include "platform/linux/sound/PulseSource.h"
#include "platform/linux/sound/RecordingFinisher.h"
#include "platform/linux/sound/SampleRing.h"
#include "platform/linux/sound/UsableSamples.h"

#include <QTemporaryFile>
#include <QTest>

#include <cmath>
#include <fcntl.h>
#include <limits>
#include <numbers>
#include <numeric>
#include <thread>
#include <vector>

using namespace kest;

namespace {

constexpr int rate = 44100;
constexpr qint64 second = 1'000'000'000;

/// The numbers of the samples that a gate keeps of one second, delivered in chunks of 10 ms.
std::vector<int> keptBy(CaptureGate &gate)
{
    std::vector<int> kept;
    std::vector<float> chunk(441);
    for (int number = 0; number < rate; number += 441) {
        for (int i = 0; i < 441; ++i)
            chunk[size_t(i)] = float(number + i);
        const auto start = [number] { return second + number * second / rate; };
        gate.pass(chunk.data(), 441, start, [&](const float *samples, qsizetype count) {
            for (qsizetype i = 0; i < count; ++i)
                kept.push_back(int(samples[i]));
        });
    }
    return kept;
}

PulseSource source(const char *name, const char *monitorOf = nullptr)
{
    PulseSource made;
    made.name = name;
    made.isMonitor = monitorOf != nullptr;
    made.monitorOfName = monitorOf ? monitorOf : "";
    return made;
}

std::vector<float> sine(double peak, int frames)
{
    std::vector<float> samples;
    for (int i = 0; i < frames; ++i)
        samples.push_back(float(peak * std::sin(2 * std::numbers::pi * 1000 * i / rate)));
    return samples;
}

} // namespace

/// The parts of capturing that need no server.
class CaptureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closedGateKeepsNothing();
    void gateCutsWhereThePressWas();
    void pauseAndResumeInOneChunkCutBoth();
    void gateEndsForGood();
    void gateAsksForTheTimeOnlyForACut();
    void meterReadsRootMeanSquare();
    void meterForgetsAfterATenthOfASecond();
    void meterReadsTheSameInChunksOfAnySize();
    void meterReadsSilence();
    void ringGivesBackWhatItWasGiven();
    void ringTakesNoMoreThanItHolds();
    void fullRingLosesNothing();
    void ringServesTwoThreads();
    void unreadableFileIsNotTakenForFinished();
    void whatNoSoundHasIsTakenOut();
    void soundIsNotCopied();
    void microphoneIsTheDefaultSource();
    void fallbackMonitorIsNoMicrophone();
    void chosenMonitorIsAMicrophone();
    void nameOfNoSourceIsNoMicrophone();
};

void CaptureTest::closedGateKeepsNothing()
{
    CaptureGate gate(rate);
    QVERIFY(keptBy(gate).empty());
    QVERIFY(!gate.isOpen());
}

void CaptureTest::gateCutsWhereThePressWas()
{
    CaptureGate gate(rate);
    gate.schedule(CaptureGate::Action::Open, second + second / 4);
    gate.schedule(CaptureGate::Action::Close, second + second / 2);
    const std::vector<int> kept = keptBy(gate);
    QCOMPARE(int(kept.size()), rate / 4);
    QVERIFY(std::abs(kept.front() - rate / 4) <= 1);
    QCOMPARE(kept.back() - kept.front() + 1, int(kept.size()));
}

void CaptureTest::pauseAndResumeInOneChunkCutBoth()
{
    CaptureGate gate(rate);
    gate.schedule(CaptureGate::Action::Open, 0);
    gate.schedule(CaptureGate::Action::Close, second + second / 1000 * 2);
    gate.schedule(CaptureGate::Action::Open, second + second / 1000 * 5);
    const std::vector<int> kept = keptBy(gate);
    QVERIFY(std::abs(int(kept.size()) - (rate - rate * 3 / 1000)) <= 1);
}

void CaptureTest::gateEndsForGood()
{
    CaptureGate gate(rate);
    gate.schedule(CaptureGate::Action::Open, 0);
    gate.schedule(CaptureGate::Action::End, second + second / 2);
    gate.schedule(CaptureGate::Action::Open, second + second / 2);
    QVERIFY(std::abs(int(keptBy(gate).size()) - rate / 2) <= 1);
    QVERIFY(gate.hasEnded());
}

void CaptureTest::gateAsksForTheTimeOnlyForACut()
{
    CaptureGate gate(rate);
    const std::vector<float> chunk(441);
    int asked = 0;
    qsizetype kept = 0;
    const auto pass = [&] {
        gate.pass(chunk.data(), 441, [&] { return ++asked, second; }, [&](const float *, qsizetype count) { kept += count; });
    };
    pass();
    QCOMPARE(asked, 0);
    gate.schedule(CaptureGate::Action::Open, second);
    pass();
    QCOMPARE(asked, 1);
    pass();
    QCOMPARE(asked, 1);
    QCOMPARE(kept, 2 * 441);
}

void CaptureTest::meterReadsRootMeanSquare()
{
    LevelMeter meter(rate);
    const auto soft = sine(0.1, rate / 2);
    meter.add(soft.data(), qsizetype(soft.size()));
    QVERIFY(std::fabs(meter.decibels() + 23.01F) < 0.05F);
    const auto loud = sine(1.0, rate / 2);
    meter.add(loud.data(), qsizetype(loud.size()));
    QVERIFY(std::fabs(meter.decibels() + 3.01F) < 0.05F);
}

void CaptureTest::meterForgetsAfterATenthOfASecond()
{
    LevelMeter meter(rate);
    const auto loud = sine(1.0, rate / 10);
    const std::vector<float> nothing(rate / 10);
    meter.add(loud.data(), qsizetype(loud.size()));
    meter.add(nothing.data(), qsizetype(nothing.size()) / 2);
    QVERIFY(meter.decibels() > -10.0F);
    meter.add(nothing.data(), qsizetype(nothing.size()) / 2);
    QCOMPARE(meter.decibels(), LevelMeter::silence);
}

void CaptureTest::meterReadsTheSameInChunksOfAnySize()
{
    const auto voice = sine(0.3, rate);
    LevelMeter whole(rate);
    whole.add(voice.data(), rate);
    for (const qsizetype size : {1, 7, 8, 440, 882, 5000}) {
        LevelMeter parts(rate);
        for (qsizetype from = 0; from < rate; from += size)
            parts.add(voice.data() + from, std::min(size, rate - from));
        QVERIFY(std::fabs(parts.decibels() - whole.decibels()) < 0.001F);
    }
}

void CaptureTest::meterReadsSilence()
{
    LevelMeter meter(rate);
    QCOMPARE(meter.decibels(), LevelMeter::silence);
    const auto loud = sine(1.0, rate / 10);
    meter.add(loud.data(), qsizetype(loud.size()));
    meter.reset();
    QCOMPARE(meter.decibels(), LevelMeter::silence);
}

void CaptureTest::ringGivesBackWhatItWasGiven()
{
    SampleRing ring;
    std::vector<float> given(100'000);
    std::vector<float> taken(given.size());
    // Round the ring more than once, so that its seam and its returned pages are crossed.
    for (qsizetype total = 0; total < SampleRing::capacity * 2; total += qsizetype(given.size())) {
        for (size_t i = 0; i < given.size(); ++i)
            given[i] = float(total % 7919 + qsizetype(i) % 3571);
        QCOMPARE(ring.write(given.data(), qsizetype(given.size())), qsizetype(given.size()));
        QCOMPARE(ring.read(taken.data(), qsizetype(taken.size())), qsizetype(taken.size()));
        QVERIFY(taken == given);
    }
    QCOMPARE(ring.available(), 0);
}

void CaptureTest::ringTakesNoMoreThanItHolds()
{
    SampleRing ring;
    QVERIFY(SampleRing::capacity >= 60 * rate);
    const std::vector<float> most(size_t(SampleRing::capacity), 1.0F);
    QCOMPARE(ring.write(most.data(), SampleRing::capacity), SampleRing::capacity);
    QCOMPARE(ring.write(most.data(), 1), 0);
    float one = 0;
    QCOMPARE(ring.read(&one, 1), 1);
    QCOMPARE(ring.write(most.data(), 5), 1);
}

void CaptureTest::fullRingLosesNothing()
{
    SampleRing ring;
    std::vector<float> given(size_t(SampleRing::capacity) + 1000);
    std::iota(given.begin(), given.end(), 1.0F);
    std::vector<float> taken(given.size());
    QCOMPARE(ring.write(given.data(), SampleRing::capacity), SampleRing::capacity);
    QCOMPARE(ring.read(taken.data(), 1000), 1000);
    QCOMPARE(ring.write(given.data() + SampleRing::capacity, 1000), 1000);
    for (size_t next = 1000; next < taken.size();)
        next += size_t(ring.read(taken.data() + next, 4096));
    QVERIFY(taken == given);
}

void CaptureTest::ringServesTwoThreads()
{
    SampleRing ring;
    constexpr int count = 1'000'000;
    std::thread writer([&] {
        for (int next = 0; next < count;) {
            const float value = float(next);
            next += int(ring.write(&value, 1));
        }
    });
    std::vector<float> part(1000);
    int expected = 0;
    bool inOrder = true;
    while (expected < count) {
        const qsizetype got = ring.read(part.data(), qsizetype(part.size()));
        for (qsizetype i = 0; i < got; ++i)
            inOrder = inOrder && part[size_t(i)] == float(expected++);
    }
    writer.join();
    QVERIFY(inOrder);
}

void CaptureTest::unreadableFileIsNotTakenForFinished()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    QVERIFY(isFragmented(file.handle()) == std::optional(false)); // it is empty
    const FileDescriptor writeOnly(open(QFile::encodeName(file.fileName()).constData(), O_WRONLY | O_CLOEXEC));
    QVERIFY(writeOnly.isOpen());
    QVERIFY(!isFragmented(writeOnly.get()).has_value());
}

void CaptureTest::whatNoSoundHasIsTakenOut()
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinite = std::numeric_limits<float>::infinity();
    const std::vector<float> heard = {0.5F, nan, infinite, -nan, -infinite, 1e30F, -1e30F, -0.5F};
    std::vector<float> room;
    const float *usable = usableSamples(heard.data(), qsizetype(heard.size()), room);
    QCOMPARE(std::vector<float>(usable, usable + heard.size()),
             (std::vector<float>{0.5F, 0, 0, 0, 0, loudestSample, -loudestSample, -0.5F}));
}

void CaptureTest::soundIsNotCopied()
{
    const std::vector<float> heard = {0, -0.0F, 1, -1, 1e-40F, loudestSample, -loudestSample};
    std::vector<float> room;
    QCOMPARE(usableSamples(heard.data(), qsizetype(heard.size()), room), heard.data());
    QCOMPARE(usableSamples(nullptr, 0, room), nullptr);
}

void CaptureTest::microphoneIsTheDefaultSource()
{
    const PulseSources known = {true, "b", "sink", {source("a"), source("b"), source("sink.monitor", "sink")}};
    QCOMPARE(known.microphone()->name, std::string("b"));
}

void CaptureTest::fallbackMonitorIsNoMicrophone()
{
    const PulseSources known = {true, "sink.monitor", "sink", {source("sink.monitor", "sink")}};
    QVERIFY(!known.microphone());
}

void CaptureTest::chosenMonitorIsAMicrophone()
{
    const PulseSources besideMicrophone = {true, "sink.monitor", "sink", {source("sink.monitor", "sink"), source("a")}};
    QCOMPARE(besideMicrophone.microphone()->name, std::string("sink.monitor"));
    const PulseSources otherSink = {true, "two.monitor", "one", {source("one.monitor", "one"), source("two.monitor", "two")}};
    QCOMPARE(otherSink.microphone()->name, std::string("two.monitor"));
}

void CaptureTest::nameOfNoSourceIsNoMicrophone()
{
    const PulseSources starting = {true, "@DEFAULT_SOURCE@", "", {source("a")}};
    QVERIFY(!starting.microphone());
    const PulseSources none = {true, "", "sink", {}};
    QVERIFY(!none.microphone());
    const PulseSources gone = {false, "a", "", {source("a")}};
    QVERIFY(!gone.microphone());
}

QTEST_APPLESS_MAIN(CaptureTest)
#include "tst_capture.moc"
