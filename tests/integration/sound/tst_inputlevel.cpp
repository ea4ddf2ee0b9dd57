#include "RecorderBench.h"
#include "TeeEncoder.h"

#include "support/VirtualMicrophone.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace kest;
using namespace kest::test;

namespace {

constexpr double minusTwentyDecibels = 0.1;
constexpr AudioPropertyAddress defaultInput = {0x64496e20, 0x676c6f62, 0};     // 'dIn ', 'glob', 0
constexpr AudioPropertyAddress deviceName = {0x6c6e616d, 0x696e7074, 0x64496e20}; // 'lnam', 'inpt', 'dIn '
constexpr int patience = 60'000; // ms
constexpr double ahead = 1.5; // the FIFO never runs empty, so the servers put in no silence of their own

} // namespace

/// What the meter reads and which microphone it is.
class InputLevelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void sineReadsItsPower_data();
    void sineReadsItsPower();
    void stereoIsAveragedAndNotClipped();
    void meterIsSilentWhenNothingIsRecorded();
    void nameIsTheDefaultMicrophones();
    void noMicrophoneHasNoName();

private:
    QByteArray addDefault(const char *name, const char *description, int channels);
    static QString nameOfDefault(RecorderBench &bench);
};

void InputLevelTest::init()
{
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
}

QByteArray InputLevelTest::addDefault(const char *name, const char *description, int channels)
{
    const QString quotedName = QString::fromLatin1(name);
    const QJsonObject added = tellSoundServer("add_source", {{QStringLiteral("name"), quotedName},
                                                             {QStringLiteral("description"), QString::fromUtf8(description)},
                                                             {QStringLiteral("channels"), channels}});
    tellSoundServer("set_default", {{QStringLiteral("name"), quotedName}});
    return added.value(u"fifo").toString().toLocal8Bit();
}

QString InputLevelTest::nameOfDefault(RecorderBench &bench)
{
    quint32 device = 0;
    QString name;
    if (bench.sound.audioHardware->propertyData(1, defaultInput, &device) != 0)
        return {};
    return bench.sound.audioHardware->propertyData(device, deviceName, &name) == 0 ? name : QString();
}

void InputLevelTest::sineReadsItsPower_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<double>("peak");
    QTest::addColumn<double>("expected");
    QTest::newRow("-20 dBFS peak, mono") << 1 << minusTwentyDecibels << -23.0;
    QTest::newRow("-20 dBFS peak, stereo") << 2 << minusTwentyDecibels << -23.0;
    QTest::newRow("full scale, mono") << 1 << 0.9999 << -3.0;
}

void InputLevelTest::sineReadsItsPower()
{
    QFETCH(int, channels);
    QFETCH(double, peak);
    QFETCH(double, expected);
    const VirtualMicrophone microphone(addDefault("kest_level", "Level Mic", channels), sine(1000, peak), channels, ahead);
    RecorderBench bench;
    QVERIFY(bench.startRecording(0.5));
    AudioFileRecorder &recorder = *bench.recorder;
    recorder.updateMeters();
    QVERIFY2(std::fabs(recorder.averagePower(0) - expected) <= 0.2, QByteArray::number(recorder.averagePower(0)).constData());
    QCOMPARE(recorder.averagePower(1), -160.0F);
}

void InputLevelTest::stereoIsAveragedAndNotClipped()
{
    // Two channels of their own: only their average has both. Summed, they would clip.
    const auto signal = [](qint64 frame, int channel) {
        return channel == 0 ? sine(1000, 0.95)(frame, 0) : 0.95F;
    };
    const VirtualMicrophone microphone(addDefault("kest_stereo", "Stereo Mic", 2), signal, 2, ahead);
    const auto tee = std::make_shared<TeeEncoder>();
    RecorderBench bench(tee);
    QVERIFY(bench.recordFor(0.5));
    const auto &samples = tee->samples();
    const auto [lowest, highest] = std::minmax_element(samples.begin() + 4410, samples.end());
    QVERIFY2(std::fabs(*highest - 0.95F) < 0.01F, QByteArray::number(*highest).constData());
    QVERIFY2(std::fabs(*lowest) < 0.01F, QByteArray::number(*lowest).constData());
}

void InputLevelTest::meterIsSilentWhenNothingIsRecorded()
{
    const VirtualMicrophone microphone(sine(1000, 0.5));
    RecorderBench bench;
    AudioFileRecorder &recorder = bench.make();
    recorder.updateMeters();
    QCOMPARE(recorder.averagePower(0), -160.0F);
    recorder.prepareToRecord();
    recorder.record();
    QVERIFY(bench.waitForCapture(0.3));
    recorder.updateMeters();
    QVERIFY(recorder.averagePower(0) > -20.0F);
    QVERIFY(bench.stopRecording());
    recorder.updateMeters();
    QCOMPARE(recorder.averagePower(0), -160.0F);
}

void InputLevelTest::nameIsTheDefaultMicrophones()
{
    RecorderBench bench;
    QTRY_COMPARE_WITH_TIMEOUT(nameOfDefault(bench), QStringLiteral("Built-in Microphone"), patience);
    addDefault("kest_usb", "USB Mic", 1);
    QTRY_COMPARE_WITH_TIMEOUT(nameOfDefault(bench), QStringLiteral("USB Mic"), patience);
    if (qgetenv("KEST_TEST_SOUND") == "pulseaudio") { // PipeWire's protocol cannot rename
        tellSoundServer("rename", {{QStringLiteral("name"), QStringLiteral("kest_usb")},
                                   {QStringLiteral("description"), QStringLiteral("Desk Mic")}});
        QTRY_COMPARE_WITH_TIMEOUT(nameOfDefault(bench), QStringLiteral("Desk Mic"), patience);
    }
}

void InputLevelTest::noMicrophoneHasNoName()
{
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    tellSoundServer("remove_source", {{QStringLiteral("name"), QStringLiteral("kest_microphone")}});
    quint32 device = 7;
    QTRY_VERIFY_WITH_TIMEOUT(bench.sound.audioHardware->propertyData(1, defaultInput, &device) != 0, patience);
    QString name;
    QVERIFY(bench.sound.audioHardware->propertyData(4711, deviceName, &name) != 0);
    QVERIFY(bench.sound.audioHardware->propertyData(1, {0x64657623, 0, 0}, &device) != 0);
}

QTEST_GUILESS_MAIN(InputLevelTest)
#include "tst_inputlevel.moc"
