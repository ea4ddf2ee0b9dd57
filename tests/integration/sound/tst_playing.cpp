#include "PlayerBench.h"
#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QFile>
#include <QTest>

#include <cmath>
#include <sys/stat.h>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pieceLength = 1000; // long enough to be found in noise
constexpr int rate = 44100;
constexpr int patience = 60'000; // ms

/// A resampling server smears the end by some samples.
constexpr qsizetype nextTo = 64;

/// What the servers' monitors miss of the beginning of a stream, whoever plays: up to 23 ms were seen.
constexpr qsizetype missed = 1100;

} // namespace

/// What is played is heard on the output: all of it, from where it should, and
/// no more after Pause.
class PlayingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        tellSoundServer("force_rate", {{u"rate"_s, rate}});
        m_output = std::make_unique<VirtualOutput>(u"kest_speaker"_s);
        m_output->listen();
    }

    void init()
    {
        m_output->forget();
        m_bench = std::make_unique<PlayerBench>();
    }

    void cleanup() { m_bench.reset(); }
    void cleanupTestCase() { m_output.reset(); }

    void allOfItIsHeard()
    {
        const FileURL file = m_bench->noise(1.5);
        QVERIFY(m_bench->open(file));
        QCOMPARE(m_bench->player.length(), 1.5);
        m_bench->player.play();
        QVERIFY(m_bench->player.isPlaying());
        QVERIFY(m_bench->waitForEnd());
        QCOMPARE(m_bench->player.position(), 1.5);
        const std::vector<float> reference = soundOf(file);
        const std::vector<float> all = settled();
        // Piece by piece, in its order. A server under load may drop out for a moment.
        qsizetype place = 0;
        int found = 0;
        for (qsizetype at = missed; at + pieceLength < qsizetype(reference.size()); at += rate / 10) {
            double likeness = 0;
            const qsizetype here = placeOf(reference.data() + at, pieceLength, all, &likeness);
            found += likeness > 0.9 && here > place ? 1 : 0;
            place = likeness > 0.9 ? here : place;
        }
        QVERIFY2(found >= 12, QByteArray::number(found).constData()); // of 15
        QVERIFY(qsizetype(all.size()) >= qsizetype(reference.size()) - missed);
    }

    void playedAgainItBeginsAnew()
    {
        const FileURL file = m_bench->noise(0.4);
        QVERIFY(m_bench->open(file));
        m_bench->player.play();
        QVERIFY(m_bench->waitForEnd());
        m_bench->player.play();
        QVERIFY(m_bench->player.position() < 0.1);
        QVERIFY(m_bench->waitForEnd());
    }

    void pauseStopsAndResumingLosesNothing()
    {
        const FileURL file = m_bench->noise(1.5);
        QVERIFY(m_bench->open(file));
        m_bench->player.play();
        QVERIFY(m_bench->waitForPosition(0.5));
        m_bench->player.pause();
        QVERIFY(!m_bench->player.isPlaying());
        const double paused = m_bench->player.position();
        const std::vector<float> reference = soundOf(file);
        const std::vector<float> before = settled();
        // What was heard ends near the position; it goes on there, and rather a little earlier than later.
        QVERIFY2(std::fabs(double(before.size()) / rate - paused) < 0.25, QByteArray::number(double(before.size())));
        QCOMPARE(m_bench->player.position(), paused);
        m_bench->player.play();
        QVERIFY(m_bench->waitForEnd());
        QTRY_VERIFY_WITH_TIMEOUT(heard().size() > before.size() + reference.size() / 4, patience);
        const std::vector<float> all = settled();
        const qsizetype tail = qsizetype(all.size()) - pieceLength;
        QVERIFY(qAbs(placeInFile(all, tail, reference) - (qsizetype(reference.size()) - pieceLength)) <= nextTo);
    }

    void seekingGoesToTheVerySample()
    {
        const FileURL file = m_bench->noise(1.5);
        QVERIFY(m_bench->open(file));
        m_bench->player.seek(1.0);
        QCOMPARE(m_bench->player.position(), 1.0);
        m_bench->player.play();
        QVERIFY(m_bench->waitForEnd());
        const std::vector<float> all = settled();
        const qsizetype begin = placeInFile(all, 0, soundOf(file));
        QVERIFY2(begin >= rate && begin <= rate + missed, QByteArray::number(begin).constData());
        QVERIFY(qAbs(begin + qsizetype(all.size()) - rate * 3 / 2) <= nextTo);
    }

    void seekingWhilePlayingGoesOnFromThere()
    {
        const FileURL file = m_bench->noise(6.0);
        QVERIFY(m_bench->open(file));
        m_bench->player.play();
        QVERIFY(m_bench->waitForPosition(0.2));
        m_bench->player.seek(5.5);
        QVERIFY(m_bench->player.isPlaying());
        QVERIFY(m_bench->waitForEnd());
        QCOMPARE(m_bench->player.position(), 6.0);
        QVERIFY(settled().size() < size_t(3 * rate));
    }

    void theWaveformHasTheShapeOfTheSound()
    {
        const FileURL file = m_bench->path(u"shape.m4a"_s);
        // Silence, then a sine that grows to half of full scale.
        outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                               u"aevalsrc='if(lt(t,1),0,(t-1)*0.5*sin(440*2*PI*t))':d=2:s=44100"_s, u"-c:a"_s, u"aac"_s,
                               file.path()});
        QVERIFY(m_bench->open(file));
        const auto peaks = m_bench->waveform.first().first().value<QList<float>>();
        QCOMPARE(peaks.size(), qsizetype(AudioFilePlayer::mostPeaks));
        QVERIFY(peaks.at(peaks.size() / 4) < 0.01F);
        QVERIFY(std::fabs(peaks.at(peaks.size() * 3 / 4) - 0.25F) < 0.06F);
        QVERIFY(std::fabs(peaks.at(peaks.size() - 2) - 0.5F) < 0.1F);
    }

    void threeHoursHaveAWaveformToo()
    {
        const FileURL file = threeHours();
        QVERIFY(m_bench->open(file));
        QVERIFY2(m_bench->player.length() > 3 * 3600, QByteArray::number(m_bench->player.length()).constData());
        const auto peaks = m_bench->waveform.first().first().value<QList<float>>();
        QCOMPARE(peaks.size(), qsizetype(AudioFilePlayer::mostPeaks));
        for (const float peak : peaks)
            QVERIFY(peak > 0.1F);
        m_bench->player.seek(3 * 3600);
        m_bench->player.play();
        QVERIFY(m_bench->waitForPosition(3 * 3600 + 0.1));
    }

    void aFileThatIsClosedIsReadNoFurther()
    {
        const FileURL file = threeHours();
        m_bench->player.open(file);
        m_bench->player.close();
        QVERIFY(m_bench->open(m_bench->noise(0.3)));
        QCOMPARE(m_bench->opened.size(), 1);
        QCOMPARE(m_bench->player.length(), 0.3);
    }

    void aFileInItsPlaceIsWhatIsPlayed()
    {
        const FileURL file = m_bench->noise(0.4);
        QVERIFY(m_bench->open(file));
        QVERIFY(QFile::remove(file.path()));
        m_bench->noise(0.8);
        m_bench->player.play();
        QVERIFY(m_bench->waitForEnd());
        QCOMPARE(m_bench->player.length(), 0.8);
        QTRY_COMPARE_WITH_TIMEOUT(m_bench->waveform.size(), 2, patience);
    }

private:
    std::vector<float> heard() { return m_output->heard(); }

    /// What was heard, once it is silent again.
    std::vector<float> settled()
    {
        if (!QTest::qWaitFor([this] { return m_output->isSilentAgain(); }, patience))
            QTest::qFail("it does not become silent", __FILE__, __LINE__);
        return heard();
    }

    /// Another decoder's opinion, without the padding that it leaves at the end.
    static std::vector<float> soundOf(const FileURL &file)
    {
        std::vector<float> samples = decoded(file);
        samples.resize(size_t(probedSamples(file)));
        return samples;
    }

    static qsizetype placeInFile(const std::vector<float> &samples, qsizetype at, const std::vector<float> &whole)
    {
        double likeness = 0;
        const qsizetype place = placeOf(samples.data() + at, pieceLength, whole, &likeness);
        return likeness > 0.9 ? place : -1000000;
    }

    FileURL threeHours() const
    {
        const FileURL file = m_bench->path(u"long.m4a"_s);
        outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-stream_loop"_s, u"7199"_s, u"-i"_s, m_bench->noise(1.5).path(),
                               u"-c"_s, u"copy"_s, file.path()});
        return file;
    }

    std::unique_ptr<VirtualOutput> m_output;
    std::unique_ptr<PlayerBench> m_bench;
};

QTEST_GUILESS_MAIN(PlayingTest)
#include "tst_playing.moc"
