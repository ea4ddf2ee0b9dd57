#include "platform/linux/sound/PlaybackBuffer.h"
#include "platform/linux/sound/WaveformScan.h"

#include <QTest>

#include <thread>

using namespace kest;

namespace {

/// A sound whose samples are told by a function; counts what is asked of it.
class MadeUpSound : public SoundReader
{
public:
    MadeUpSound(qint64 length, std::function<float(qint64)> sample) : m_length(length), m_sample(std::move(sample)) { }

    int sampleRate() const override { return 44100; }
    qint64 length() const override { return m_length; }
    std::optional<FileFailure> seek(qint64 sample) override
    {
        m_next = sample;
        ++seeks;
        return std::nullopt;
    }
    qsizetype read(float *samples, qsizetype count, FileFailure *) override
    {
        const auto got = qsizetype(std::min({qint64(count), m_length - m_next, qint64(777)}));
        for (qsizetype i = 0; i < got; ++i)
            samples[i] = m_sample(m_next++);
        decoded += got;
        if (whenRead)
            whenRead();
        return got;
    }

    qint64 decoded = 0;
    int seeks = 0;
    std::function<void()> whenRead;

private:
    const qint64 m_length;
    const std::function<float(qint64)> m_sample;
    qint64 m_next = 0;
};

const std::atomic<bool> notCancelled = false;

} // namespace

/// The shape of a sound, and the buffer that it is played from.
class TestWaveform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPartHasItsLoudestSample()
    {
        MadeUpSound sound(4000, [](qint64 sample) {
            return sample == 1500 ? -0.7F : sample == 3999 ? 0.2F : 0.05F;
        });
        QCOMPARE(scanWaveform(sound, 4, notCancelled), QList<float>({0.05F, 0.7F, 0.05F, 0.2F}));
    }

    void fewSamplesHaveFewParts()
    {
        MadeUpSound sound(3, [](qint64 sample) { return float(sample) / 4; });
        QCOMPARE(scanWaveform(sound, 512, notCancelled), QList<float>({0.0F, 0.25F, 0.5F}));
        MadeUpSound nothing(0, [](qint64) { return 0.0F; });
        QCOMPARE(scanWaveform(nothing, 512, notCancelled), QList<float>());
    }

    void whatIsBeyondFullScaleIsFullScale()
    {
        MadeUpSound sound(10, [](qint64) { return 1.5F; });
        QCOMPARE(scanWaveform(sound, 1, notCancelled), QList<float>({1.0F}));
    }

    void aLongSoundIsLookedAtInPlacesAndCostsNoMore()
    {
        constexpr qint64 tenMinutes = 10 * 60 * 44100;
        MadeUpSound sound(18 * tenMinutes, [](qint64 sample) { return sample < 9 * tenMinutes ? 0.1F : 0.4F; });
        const QList<float> peaks = scanWaveform(sound, 512, notCancelled);
        QCOMPARE(peaks.size(), 512);
        QVERIFY(sound.seeks > 512);
        QVERIFY(sound.decoded < tenMinutes);
        QCOMPARE(peaks.first(), 0.1F);
        QCOMPARE(peaks.last(), 0.4F);
        QVERIFY(!peaks.contains(0.0F));
    }

    void aCancelledScanReadsNoFurther()
    {
        std::atomic<bool> cancelled = false;
        MadeUpSound sound(1'000'000, [](qint64) { return 0.3F; });
        sound.whenRead = [&] { cancelled = true; };
        scanWaveform(sound, 512, cancelled);
        QVERIFY(sound.decoded < 3000);
    }

    void theBufferGivesWhatWasWrittenInOrder()
    {
        PlaybackBuffer buffer;
        buffer.begin(8000);
        constexpr int all = 50'000; // more than it holds
        std::thread writer([&] {
            for (int sample = 0; sample < all; sample += 100) {
                std::array<float, 100> piece;
                for (int i = 0; i < 100; ++i)
                    piece[size_t(i)] = float(sample + i);
                buffer.write(piece.data(), 100);
            }
            buffer.end();
        });
        std::array<float, 333> piece;
        int next = 0;
        bool inOrder = true;
        while (!buffer.hasEnded()) {
            const qsizetype got = buffer.read(piece.data(), piece.size());
            for (qsizetype i = 0; i < got; ++i)
                inOrder = inOrder && piece[size_t(i)] == float(next++);
            if (got == 0)
                std::this_thread::yield();
        }
        writer.join();
        QVERIFY(inOrder);
        QCOMPARE(next, all);
    }

    void aCancelledBufferLetsItsWriterGo()
    {
        PlaybackBuffer buffer;
        buffer.begin(100);
        bool wanted = true;
        std::thread writer([&] {
            const std::array<float, 200> samples = {};
            wanted = buffer.write(samples.data(), samples.size());
        });
        buffer.cancel();
        writer.join();
        QVERIFY(!wanted);
    }

    void aFailureIsToldAfterWhatCameBeforeIt()
    {
        PlaybackBuffer buffer;
        buffer.begin(8000);
        const float sample = 0.5F;
        buffer.write(&sample, 1);
        buffer.fail({PlaybackTrouble::Unreadable, {}});
        QVERIFY(!buffer.failure());
        float read = 0;
        QCOMPARE(buffer.read(&read, 1), 1);
        QCOMPARE(buffer.failure()->first, PlaybackTrouble::Unreadable);
        QVERIFY(!buffer.hasEnded());
    }
};

QTEST_GUILESS_MAIN(TestWaveform)
#include "tst_waveform.moc"
