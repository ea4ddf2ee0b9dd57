#include "platform/linux/sound/ClippingDetector.h"
#include "platform/linux/sound/InputWatch.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

using namespace kest;

namespace {

constexpr int rate = 44100;

using Samples = std::vector<float>;

Samples steady(float value, double seconds)
{
    return Samples(size_t(seconds * rate), value);
}

/// Peaks of `peak`, cut off at full scale.
Samples sine(double hertz, double peak, double seconds)
{
    Samples samples = steady(0, seconds);
    for (size_t i = 0; i < samples.size(); ++i) {
        const double value = peak * std::sin(2 * std::numbers::pi * hertz * double(i) / rate);
        samples[i] = float(std::clamp(value, -1.0, 32767.0 / 32768));
    }
    return samples;
}

Samples operator+(Samples first, const Samples &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// Fed in chunks of 10 ms, as a server does.
void feed(InputWatch &watch, const Samples &samples)
{
    constexpr size_t chunk = 441;
    for (size_t i = 0; i < samples.size(); i += chunk)
        watch.add(samples.data() + i, qsizetype(std::min(chunk, samples.size() - i)), false);
}

bool isClipped(const Samples &interleaved, int channels = 1)
{
    return ClippingDetector(channels).hearsClipping(interleaved.data(), qsizetype(interleaved.size()) / channels);
}

} // namespace

/// When a recording counts as silent, and when as too loud.
class InputWatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void judgesWhatItHears_data();
    void judgesWhatItHears();
    void staysSilentUntilSomethingIsAudible();
    void beginsAfreshAfterAPause();
    void clippingIsSaidForThreeSeconds();
    void fourSamplesInARowAreCutOff_data();
    void fourSamplesInARowAreCutOff();
    void aRowMayBeginInTheChunkBefore();
    void oneChannelOfTwoIsEnough();
};

void InputWatchTest::judgesWhatItHears_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<InputCondition>("condition");
    using enum InputCondition;
    QTest::newRow("nothing yet") << Samples() << Unknown;
    QTest::newRow("zeros, less than a second") << steady(0, 0.99) << Unknown;
    QTest::newRow("zeros, a second") << steady(0, 1) << Silent;
    QTest::newRow("a little noise, a second") << steady(0.0005F, 1) << Unknown;
    QTest::newRow("a little noise, less than three seconds") << steady(0.00099F, 2.99) << Unknown;
    QTest::newRow("a little noise, three seconds") << steady(0.00099F, 3) << Silent;
    QTest::newRow("just audible") << steady(0.001F, 3) << Heard;
    QTest::newRow("speech") << sine(200, 0.1, 2) << Heard;
    QTest::newRow("speech, then zeros for less than a second") << sine(200, 0.1, 1) + steady(0, 0.9) << Heard;
    QTest::newRow("speech, then zeros") << sine(200, 0.1, 1) + steady(0, 1.1) << Silent;
    QTest::newRow("zeros, then speech") << steady(0, 2) + sine(200, 0.1, 0.1) << Heard;
    QTest::newRow("below zero") << steady(-0.5F, 2) << Heard;
}

void InputWatchTest::judgesWhatItHears()
{
    QFETCH(Samples, samples);
    InputWatch watch(rate);
    feed(watch, samples);
    QTEST(watch.condition(), "condition");
}

void InputWatchTest::staysSilentUntilSomethingIsAudible()
{
    InputWatch watch(rate);
    feed(watch, steady(0, 1) + steady(0.0005F, 0.5));
    QCOMPARE(watch.condition(), InputCondition::Silent);
    feed(watch, {0.002F});
    QCOMPARE(watch.condition(), InputCondition::Heard);
}

void InputWatchTest::beginsAfreshAfterAPause()
{
    InputWatch watch(rate);
    feed(watch, steady(0, 2));
    watch.reset();
    QCOMPARE(watch.condition(), InputCondition::Unknown);
    feed(watch, steady(0, 0.9));
    QCOMPARE(watch.condition(), InputCondition::Unknown);
    feed(watch, steady(0, 0.1));
    QCOMPARE(watch.condition(), InputCondition::Silent);
}

void InputWatchTest::clippingIsSaidForThreeSeconds()
{
    InputWatch watch(rate);
    const Samples loud = sine(200, 1, 0.1);
    const Samples speech = sine(200, 0.1, 2.9);
    watch.add(loud.data(), qsizetype(loud.size()), true);
    QCOMPARE(watch.condition(), InputCondition::Clipping);
    feed(watch, speech);
    QCOMPARE(watch.condition(), InputCondition::Clipping);
    feed(watch, sine(200, 0.1, 0.2));
    QCOMPARE(watch.condition(), InputCondition::Heard);
}

void InputWatchTest::fourSamplesInARowAreCutOff_data()
{
    QTest::addColumn<Samples>("samples");
    QTest::addColumn<bool>("clipped");
    const float most = 32767.0F / 32768;
    QTest::newRow("three") << Samples{0.5F, 1, 1, 1, 0.5F} << false;
    QTest::newRow("four") << Samples{0.5F, 1, 1, 1, 1, 0.5F} << true;
    QTest::newRow("four of the largest of 16 bits") << Samples{most, most, most, most} << true;
    QTest::newRow("four below zero") << Samples{-1, -1, -1, -1} << true;
    QTest::newRow("from one side to the other") << Samples{1, 1, 1, -1, -1, -1} << false;
    QTest::newRow("wavy, as after a change of rate") << Samples{1.02F, 0.99F, 1.01F, 0.995F} << true;
    QTest::newRow("0.2 dB below full scale") << Samples{0.977F, 0.977F, 0.977F, 0.977F} << false;
    QTest::newRow("a loud voice") << sine(200, 0.98, 0.5) << false;
    QTest::newRow("twice as loud as can be") << sine(200, 2, 0.5) << true;
    QTest::newRow("a high tone, too loud by 2 dB") << sine(3000, 1.26, 0.5) << true;
}

void InputWatchTest::fourSamplesInARowAreCutOff()
{
    QFETCH(Samples, samples);
    QFETCH(bool, clipped);
    QCOMPARE(isClipped(samples), clipped);
}

void InputWatchTest::aRowMayBeginInTheChunkBefore()
{
    ClippingDetector detector(1);
    const Samples half = {1, 1};
    QVERIFY(!detector.hearsClipping(half.data(), 2));
    QVERIFY(detector.hearsClipping(half.data(), 2));
    const Samples quiet = {0.5F};
    QVERIFY(!detector.hearsClipping(quiet.data(), 1));
}

void InputWatchTest::oneChannelOfTwoIsEnough()
{
    QVERIFY(isClipped({0.1F, 1, 0.1F, 1, -0.1F, 1, -0.1F, 1}, 2));
    QVERIFY(!isClipped({1, 0.1F, 0.1F, 1, 1, 0.1F, 0.1F, 1}, 2));
}

QTEST_APPLESS_MAIN(InputWatchTest)
#include "tst_inputwatch.moc"
