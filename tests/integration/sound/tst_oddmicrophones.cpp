#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QElapsedTimer>
#include <QTest>

#include <array>
#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <limits>
#include <thread>
#include <unistd.h>

using namespace kest;
using namespace kest::test;

namespace {

constexpr int rate = 44100;
constexpr int block = 441; // samples in 10 ms

/// Speaks half of full scale into a FIFO of floats, in real time; one sample of each block is none.
class BrokenFilter
{
public:
    explicit BrokenFilter(QByteArray fifo) : m_fifo(std::move(fifo)), m_thread([this] { speak(); }) { }
    ~BrokenFilter()
    {
        m_ended = true;
        m_thread.join();
    }

private:
    void speak()
    {
        const int pipe = open(m_fifo.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        std::array<float, block> samples = {};
        samples.fill(0.5F);
        samples[100] = std::numeric_limits<float>::quiet_NaN();
        samples[200] = std::numeric_limits<float>::infinity();
        for (auto due = std::chrono::steady_clock::now(); !m_ended; due += std::chrono::milliseconds(10)) {
            std::this_thread::sleep_until(due);
            m_failed = write(pipe, samples.data(), sizeof samples) != ssize_t(sizeof samples);
        }
        close(pipe);
    }

    const QByteArray m_fifo;
    std::atomic<bool> m_ended = false;
    bool m_failed = false; // as of a full FIFO: what is not read now is not missed
    std::thread m_thread;
};

QJsonObject named(const QString &name)
{
    return {{QStringLiteral("name"), name}};
}

} // namespace

/// Microphones that are no sound cards.
class OddMicrophonesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void samplesThatAreNoNumbersDoNotEndTheRecording();
    void aMicrophoneOnTheNetworkIsHeardToTheEnd();
};

void OddMicrophonesTest::samplesThatAreNoNumbersDoNotEndTheRecording()
{
    const QString name = QStringLiteral("broken_filter");
    QJsonObject source = named(name);
    source[u"description"] = name;
    source[u"sample_format"] = QStringLiteral("float32le");
    const BrokenFilter filter(tellSoundServer("add_source", source)[u"fifo"].toString().toLocal8Bit());
    tellSoundServer("set_default", named(name));
    RecorderBench bench;
    QVERIFY(bench.recordFor(1.0));
    QCOMPARE(bench.trouble->size(), 0);
    QCOMPARE(probedSamples(bench.recorder->url()), qint64(bench.recorder->currentTime() * rate + 0.5));
    tellSoundServer("set_default", named(QStringLiteral("kest_microphone")));
    tellSoundServer("remove_source", named(name));
}

void OddMicrophonesTest::aMicrophoneOnTheNetworkIsHeardToTheEnd()
{
    constexpr int delay = 499; // milliseconds: PulseAudio takes less than 500
    constexpr double unsure = 0.1; // seconds, of the server's own word on how late it is
    QJsonObject tunnel = named(QStringLiteral("far"));
    tunnel[u"delay"] = delay;
    const VirtualMicrophone microphone(tellSoundServer("add_tunnel", tunnel)[u"fifo"].toString().toLocal8Bit(), sine(440, 0.5), 1);
    RecorderBench bench;
    bench.make();
    QVERIFY(bench.waitUntilConnected());
    QVERIFY(bench.recorder->prepareToRecord());
    QElapsedTimer spoken;
    spoken.start();
    QVERIFY(bench.recorder->record());
    QVERIFY(bench.waitForCapture(1.0));
    const double seconds = double(spoken.elapsed()) / 1000;
    QVERIFY(bench.stopRecording());
    const double kept = double(probedSamples(bench.recorder->url())) / rate;
    qInfo("spoken %.3f s, kept %.3f s", seconds, kept);
    QVERIFY(kept >= seconds - unsure);
}

QTEST_GUILESS_MAIN(OddMicrophonesTest)
#include "tst_oddmicrophones.moc"
