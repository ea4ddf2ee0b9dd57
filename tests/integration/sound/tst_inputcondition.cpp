#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QTest>

#include <algorithm>

using namespace kest;
using namespace kest::test;

namespace {

constexpr int patience = 30'000; // ms
constexpr double ahead = 1.5;    // the FIFO never runs empty, so the servers put in no zeros of their own

/// Sounds like a hushed room; its peak is -66 dBFS.
VirtualMicrophone::Signal noise(double peak)
{
    return [state = quint32(1), peak](qint64, int) mutable {
        state = state * 1664525U + 1013904223U; // Numerical Recipes' linear congruential generator
        return float(peak * (double(state) / 2147483648.0 - 1));
    };
}

VirtualMicrophone::Signal cutOffSine(double hertz, double peak)
{
    const float most = 32767.0F / 32768; // of 16 bits
    return [tone = sine(hertz, peak), most](qint64 frame, int channel) {
        return std::clamp(tone(frame, channel), -1.0F, most);
    };
}

} // namespace

/// What a recording is said to sound like, by real servers.
class InputConditionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aMutedMicrophoneIsSilentUntilItIsUnmuted();
    void aLittleNoiseIsSilence();
    void aToneThatIsCutOffClips_data();
    void aToneThatIsCutOffClips();
    void aLoudToneDoesNotClip();
    void aPauseIsNotSilence();
    void theFileGrowsMeanwhile();

private:
    void start();
    InputCondition last() const;
    QByteArray addDefault(int channels, int rate);

    std::unique_ptr<RecorderBench> m_bench;
    std::unique_ptr<QSignalSpy> m_conditions;
};

void InputConditionTest::init()
{
    m_conditions.reset();
    m_bench.reset();
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
}

void InputConditionTest::start()
{
    qRegisterMetaType<InputCondition>();
    m_bench = std::make_unique<RecorderBench>(); // after the last change of the default microphone
    AudioFileRecorder &recorder = m_bench->make();
    m_conditions = std::make_unique<QSignalSpy>(&recorder, &AudioFileRecorder::inputConditionChanged);
    QVERIFY(recorder.prepareToRecord());
    QCOMPARE(recorder.fileSize(), 0);
    QVERIFY(recorder.record());
}

InputCondition InputConditionTest::last() const
{
    return m_conditions->isEmpty() ? InputCondition::Unknown : m_conditions->last().first().value<InputCondition>();
}

QByteArray InputConditionTest::addDefault(int channels, int rate)
{
    const QString name = QStringLiteral("kest_condition");
    const QJsonObject added = tellSoundServer("add_source", {{QStringLiteral("name"), name},
                                                             {QStringLiteral("description"), QStringLiteral("USB Mic")},
                                                             {QStringLiteral("channels"), channels},
                                                             {QStringLiteral("rate"), rate}});
    tellSoundServer("set_default", {{QStringLiteral("name"), name}});
    return added.value(u"fifo").toString().toLocal8Bit();
}

void InputConditionTest::aMutedMicrophoneIsSilentUntilItIsUnmuted()
{
    const QString microphoneName = QStringLiteral("kest_microphone");
    tellSoundServer("mute", {{QStringLiteral("name"), microphoneName}});
    const VirtualMicrophone microphone(sine(300, 0.3), 1, ahead);
    start();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Silent, patience);
    QCOMPARE(m_conditions->last().at(1).toString(), QStringLiteral("Built-in Microphone"));
    tellSoundServer("mute", {{QStringLiteral("name"), microphoneName}, {QStringLiteral("muted"), false}});
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Heard, patience);
    QVERIFY(m_bench->stopRecording());
}

void InputConditionTest::aLittleNoiseIsSilence()
{
    const VirtualMicrophone microphone(noise(0.0005), 1, ahead);
    start();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Silent, patience);
    QVERIFY(m_bench->recorder->currentTime() >= 3);
}

void InputConditionTest::aToneThatIsCutOffClips_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    QTest::newRow("mono, at the file's own rate") << 1 << 44100;
    QTest::newRow("stereo, at another rate") << 2 << 48000;
}

void InputConditionTest::aToneThatIsCutOffClips()
{
    QFETCH(int, channels);
    QFETCH(int, rate);
    const VirtualMicrophone microphone(addDefault(channels, rate), cutOffSine(500, 2), channels, ahead);
    start();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Clipping, patience);
    QCOMPARE(m_conditions->last().at(1).toString(), QStringLiteral("USB Mic"));
    m_bench->recorder->stop();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Unknown, patience);
}

void InputConditionTest::aLoudToneDoesNotClip()
{
    const VirtualMicrophone microphone(addDefault(2, 48000), sine(500, 0.95), 2, ahead);
    start();
    QVERIFY(m_bench->waitForCapture(1, patience));
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Heard, patience);
    QCOMPARE(m_conditions->size(), 1);
}

void InputConditionTest::aPauseIsNotSilence()
{
    const VirtualMicrophone microphone([](qint64, int) { return 0.0F; });
    start();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Silent, patience);
    m_bench->recorder->pause();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Unknown, patience);
    m_bench->recorder->record();
    QTRY_COMPARE_WITH_TIMEOUT(last(), InputCondition::Silent, patience);
}

void InputConditionTest::theFileGrowsMeanwhile()
{
    const VirtualMicrophone microphone(sine(300, 0.3), 1, ahead);
    start(); // with an empty file
    QTRY_VERIFY_WITH_TIMEOUT(m_bench->recorder->fileSize() > 4000, patience);
    QVERIFY(m_bench->stopRecording());
}

QTEST_GUILESS_MAIN(InputConditionTest)
#include "tst_inputcondition.moc"
