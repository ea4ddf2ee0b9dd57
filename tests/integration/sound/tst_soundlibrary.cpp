#include "PlayerBench.h"
#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 toldWithinMilliseconds = 2000;
constexpr int patience = 60'000; // ms

PulseSoundOptions with(const QString &plugin)
{
    PulseSoundOptions options;
    options.pulsePlugin = QFile::encodeName(plugin);
    return options;
}

} // namespace

/// libpulse lies in a plugin: what happens where that cannot be loaded, and the sound server is there.
class SoundLibraryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aRecordingIsToldThatItIsMissing_data();
    void aRecordingIsToldThatItIsMissing();
    void listeningIsToldThatItIsMissing();
    void theTrialOfTheMicrophoneIsToldThatItIsMissing();
    void itIsUsedOnceItIsBack();
    void aServerThatIsStuckIsToldInTimeOnceItIsBack();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void putBack(const QString &plugin) const;
    static void verifyToldInTime(RecorderBench &bench);
    static void verifyToldWithoutIt(RecorderBench &bench, const QString &plugin);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void SoundLibraryTest::init()
{
    qRegisterMetaType<RecordingTrouble>();
    m_folder = std::make_unique<QTemporaryDir>();
    QFile damaged(path(u"damaged.so"_s));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no library") > 0);
}

void SoundLibraryTest::cleanup()
{
    tellSoundServer("resume");
}

void SoundLibraryTest::putBack(const QString &plugin) const
{
    QFile::remove(plugin);
    QVERIFY(QFile::link(qEnvironmentVariable("KEST_BUILD_DIR") + u"/lib/kest-pulse.so"_s, plugin));
}

void SoundLibraryTest::verifyToldInTime(RecorderBench &bench)
{
    QElapsedTimer since;
    since.start();
    QVERIFY(bench.startRecording());
    QTRY_COMPARE_WITH_TIMEOUT(bench.trouble->size(), 1, patience);
    QVERIFY2(since.elapsed() < toldWithinMilliseconds, QByteArray::number(since.elapsed()).constData());
    QCOMPARE(bench.trouble->first().at(0).value<RecordingTrouble>(), RecordingTrouble::NoSoundServer);
}

void SoundLibraryTest::verifyToldWithoutIt(RecorderBench &bench, const QString &plugin)
{
    verifyToldInTime(bench);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(bench.trouble->first().at(1).toString().contains(plugin), "the reason is told");
    QVERIFY(bench.waitUntilFinished());
    QVERIFY(!bench.finished->first().first().toBool());
    QVERIFY(!QFile::exists(bench.recorder->url().path()));
}

void SoundLibraryTest::aRecordingIsToldThatItIsMissing_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::newRow("missing") << u"missing.so"_s;
    QTest::newRow("damaged") << u"damaged.so"_s;
}

void SoundLibraryTest::aRecordingIsToldThatItIsMissing()
{
    QFETCH(QString, plugin);
    RecorderBench bench(with(path(plugin)));
    verifyToldWithoutIt(bench, path(plugin));
    verifyToldWithoutIt(bench, path(plugin)); // each time
}

void SoundLibraryTest::listeningIsToldThatItIsMissing()
{
    // Made before there is a sound thread: the thread sanitizer loses count where a process is started while one is idle.
    const FileURL noise = FileURL::fromPath(path(u"noise.m4a"_s));
    makeNoise(noise, 0.5);
    PlayerBench bench(with(path(u"missing.so"_s)));
    QVERIFY(bench.open(noise)); // which needs no sound server
    bench.player.play();
    QVERIFY(bench.waitForTrouble());
    QCOMPARE(bench.trouble.first().at(0).value<PlaybackTrouble>(), PlaybackTrouble::NoSoundServer);
    QVERIFY(bench.trouble.first().at(1).toString().contains(u"missing.so"));
    QVERIFY(!bench.player.isPlaying());
}

void SoundLibraryTest::theTrialOfTheMicrophoneIsToldThatItIsMissing()
{
    const PulseSound sound = makePulseSound(with(path(u"missing.so"_s)));
    QSignalSpy troubles(sound.microphoneTrial.get(), &MicrophoneTrial::troubleOccurred);
    QCOMPARE(sound.microphoneTrial->microphone(), QString());
    sound.microphoneTrial->start();
    QTRY_COMPARE_WITH_TIMEOUT(troubles.size(), 1, patience);
    QCOMPARE(troubles.first().first().value<RecordingTrouble>(), RecordingTrouble::NoSoundServer);
    QVERIFY(!sound.microphoneTrial->isListening());
}

void SoundLibraryTest::itIsUsedOnceItIsBack()
{
    const VirtualMicrophone microphone(sine(440, 0.3));
    RecorderBench bench(with(path(u"damaged.so"_s)));
    verifyToldWithoutIt(bench, path(u"damaged.so"_s));
    putBack(path(u"damaged.so"_s));
    QVERIFY(bench.recordFor(0.3));
    QVERIFY(bench.trouble->isEmpty());
    QVERIFY(bench.waitUntilConnected());
}

void SoundLibraryTest::aServerThatIsStuckIsToldInTimeOnceItIsBack()
{
    RecorderBench bench(with(path(u"missing.so"_s)));
    verifyToldWithoutIt(bench, path(u"missing.so"_s));
    tellSoundServer("stall");
    putBack(path(u"missing.so"_s));
    verifyToldInTime(bench);
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(bench.trouble->first().at(1).toString().isEmpty(), "it was loaded");
    QVERIFY(bench.waitUntilFinished());
}

QTEST_GUILESS_MAIN(SoundLibraryTest)
#include "tst_soundlibrary.moc"
