#include "PlayerBench.h"
#include "RecorderBench.h"

#include "platform/linux/sound/DecoderLoader.h"
#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// Whatever goes away while somebody listens is told, nothing hangs, and the
/// next Play tries again from where it was.
class PlayingTroubleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        PlayerBench bench;
        QFile whole(bench.noise(0.5).path());
        QVERIFY(whole.open(QIODevice::ReadOnly));
        m_whole = whole.readAll();
    }

    void init()
    {
        m_output = std::make_unique<VirtualOutput>(u"kest_speaker"_s);
        m_bench = std::make_unique<PlayerBench>();
    }

    void cleanup()
    {
        m_bench.reset();
        m_output.reset();
    }

    void cleanupTestCase() { tellSoundServer("resume"); }

    void aFileThatVanishedIsTold()
    {
        const FileURL file = m_bench->noise(0.5);
        QVERIFY(m_bench->open(file));
        QVERIFY(QFile::remove(file.path()));
        m_bench->player.play();
        verifyTold(PlaybackTrouble::FileMissing);
        m_bench->noise(0.5);
        verifyPlaysAgain();
    }

    void aFileThatNeverWasIsTold()
    {
        m_bench->player.open(m_bench->path(u"none.m4a"_s));
        verifyTold(PlaybackTrouble::FileMissing);
    }

    void whatIsNoRecordingIsTold_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("This is no sound at all.").repeated(100);
        QTest::newRow("cut off") << m_whole.left(m_whole.size() / 3);
        QTest::newRow("boxes that lie") << QByteArray::fromHex("00000018667479704d34412000000000ffffffff6d6f6f76");
    }

    void whatIsNoRecordingIsTold()
    {
        QFETCH(QByteArray, content);
        QFile file(m_bench->path(u"odd.m4a"_s).path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        m_bench->player.open(m_bench->path(u"odd.m4a"_s));
        verifyTold(PlaybackTrouble::Unreadable);
    }

    void anotherKindOfSoundIsTold()
    {
        const FileURL file = m_bench->path(u"wave.m4a"_s);
        outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=0.2"_s, u"-f"_s, u"wav"_s,
                               file.path()});
        m_bench->player.open(file);
        verifyTold(PlaybackTrouble::Unreadable);
    }

    void aPipeOrAFolderInItsPlaceBlocksNobody()
    {
        QCOMPARE(::mkfifo(m_bench->path(u"pipe.m4a"_s).nativePath().constData(), 0600), 0);
        m_bench->player.open(m_bench->path(u"pipe.m4a"_s));
        verifyTold(PlaybackTrouble::Unreadable);
        QVERIFY(QDir().mkdir(m_bench->path(u"folder.m4a"_s).path()));
        m_bench->trouble.clear();
        m_bench->player.open(m_bench->path(u"folder.m4a"_s));
        verifyTold(PlaybackTrouble::Unreadable);
    }

    void aMissingDecoderIsTold()
    {
        PulseSoundOptions options;
        options.decoders = std::make_shared<DecoderLoader>("/nowhere/kest-decoder.so");
        const PulseSound sound = makePulseSound(options);
        QSignalSpy trouble(sound.player.get(), &AudioFilePlayer::troubleOccurred);
        sound.player->open(m_bench->noise(0.2));
        QTRY_COMPARE_WITH_TIMEOUT(trouble.size(), 1, 60'000);
        QCOMPARE(trouble.first().first().value<PlaybackTrouble>(), PlaybackTrouble::DecoderMissing);
        QVERIFY(!trouble.first().at(1).toString().isEmpty());
    }

    void anOutputThatIsUnpluggedStopsThePlaying()
    {
        VirtualOutput other(u"kest_loudspeaker"_s); // the default now, and what is left
        auto headphones = std::make_unique<VirtualOutput>(u"kest_headphones"_s);
        playTo(0.3);
        headphones->remove();
        verifyTold(PlaybackTrouble::OutputLost);
        verifyPlaysAgain();
    }

    void theLastOutputThatIsUnpluggedIsTold()
    {
        playTo(0.3);
        m_output->remove();
        verifyTold(PlaybackTrouble::OutputLost);
    }

    void withoutAnOutputThatIsTold()
    {
        m_output->remove();
        QVERIFY(m_bench->open(m_bench->noise(0.5)));
        m_bench->player.play();
        verifyTold(PlaybackTrouble::NoOutput);
        m_output = std::make_unique<VirtualOutput>(u"kest_speaker"_s);
        verifyPlaysAgain();
    }

    void aStalledServerIsTold()
    {
        playTo(0.3);
        tellSoundServer("stall");
        verifyTold(PlaybackTrouble::NoProgress);
        tellSoundServer("resume");
        verifyPlaysAgain();
    }

    void aKilledServerIsToldAndTheNextOneIsUsed()
    {
        playTo(0.3);
        tellSoundServer("kill");
        m_output.reset();
        verifyTold(PlaybackTrouble::SoundServerLost);
        const double position = m_bench->player.position();
        QVERIFY(position >= 0.3);
        m_bench->trouble.clear();
        m_bench->player.play();
        verifyTold(PlaybackTrouble::NoSoundServer);
        QCOMPARE(m_bench->player.position(), position);
        tellSoundServer("restart_with_microphone");
        m_output = std::make_unique<VirtualOutput>(u"kest_speaker"_s);
        verifyPlaysAgain();
    }

private:
    void playTo(double seconds)
    {
        QVERIFY(m_bench->open(m_bench->noise(8.0)));
        m_bench->player.play();
        QVERIFY(m_bench->waitForPosition(seconds));
    }

    void verifyTold(PlaybackTrouble expected)
    {
        QVERIFY(m_bench->waitForTrouble());
        QCOMPARE(m_bench->trouble.first().first().value<PlaybackTrouble>(), expected);
        QVERIFY(!m_bench->player.isPlaying());
    }

    void verifyPlaysAgain()
    {
        m_bench->trouble.clear();
        const double position = m_bench->player.position();
        m_bench->player.play();
        const bool plays = m_bench->waitForPosition(position + 0.1);
        const int trouble = m_bench->trouble.isEmpty() ? -1 : int(m_bench->trouble.first().first().value<PlaybackTrouble>());
        QVERIFY2(plays, QByteArray::number(trouble).constData());
    }

    QByteArray m_whole;
    std::unique_ptr<VirtualOutput> m_output;
    std::unique_ptr<PlayerBench> m_bench;
};

QTEST_GUILESS_MAIN(PlayingTroubleTest)
#include "tst_playingtrouble.moc"
