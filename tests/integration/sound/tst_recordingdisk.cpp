#include "RecorderBench.h"

#include "support/FailingCalls.h"
#include "support/PrivateMounts.h"
#include "support/StalledThread.h"
#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <cstdio>
#include <sys/stat.h>
#include <utility>

using namespace kest;
using namespace kest::test;
using kest::testing::SmallFileSystem;

namespace {

constexpr qint64 toldWithinMilliseconds = 2000;
constexpr double runUp = 1024 / 44100.0; // seconds that ffmpeg plays of the encoder's own at the head of an unfinished file
constexpr double halfSample = 0.5 / 44100.0; // seconds
constexpr qint64 page = 4096; // what a file in memory grows by

} // namespace

/// A disk that is full or broken, while recording and while finishing: told in
/// time, everything that was written stays playable, nothing else lies about,
/// and the next start makes an ordinary file of it.
class RecordingDiskTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fullDiskEndsTheRecording();
    void brokenDiskEndsTheRecording();
    void aDiskThatLosesWhatItTookEndsTheRecording();
    void aFileSystemThatCannotSyncIsNoTrouble();
    void theTroubleIsToldBeforeTheEndHoweverLateTheCaptureThreadIs();
    void diskThatFillsUpInTheMiddleOfFinishing_data();
    void diskThatFillsUpInTheMiddleOfFinishing();
    void diskThatBreaksInTheMiddleOfFinishing_data();
    void diskThatBreaksInTheMiddleOfFinishing();

private:
    static bool recordIntoFile(RecorderBench &bench);
    static bool waitUntilWritten(RecorderBench &bench, qint64 moreThan);
    void verifyTold(RecorderBench &bench, RecordingTrouble expected);
    void verifyPlayable(const RecorderBench &bench, double seconds);
    void verifyNextStartFinishes(const RecorderBench &bench);
    QByteArray folder() const { return m_home->path().toLocal8Bit() + "/Recordings"; }
    QStringList listed() const;

    QElapsedTimer m_since;
    std::unique_ptr<QTemporaryDir> m_home;
    const VirtualMicrophone m_microphone{sine(440, 0.3)};
};

void RecordingDiskTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_STATE_HOME", m_home->filePath(QStringLiteral("state")).toLocal8Bit()); // each test remembers its own
    QVERIFY(QDir().mkdir(QString::fromLocal8Bit(folder())));
}

QStringList RecordingDiskTest::listed() const
{
    return QDir(QString::fromLocal8Bit(folder())).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// Half a second, and some of it is in the file.
bool RecordingDiskTest::recordIntoFile(RecorderBench &bench)
{
    return bench.startRecording(0.5)
        && QTest::qWaitFor([&] { return QFileInfo(bench.recorder->url().path()).size() > 0; }, 60'000);
}

/// Until what was said before a pause is in the file: more bytes than that, and no more are on their way.
bool RecordingDiskTest::waitUntilWritten(RecorderBench &bench, qint64 moreThan)
{
    qint64 last = 0;
    return QTest::qWaitFor([&] {
        const qint64 before = std::exchange(last, QFileInfo(bench.recorder->url().path()).size());
        QTest::qWait(300);
        return before == last && last > moreThan;
    }, 60'000);
}

void RecordingDiskTest::verifyTold(RecorderBench &bench, RecordingTrouble expected)
{
    QTRY_COMPARE_WITH_TIMEOUT(bench.trouble->size(), 1, 60'000);
    const qint64 elapsed = m_since.elapsed();
    QVERIFY(bench.waitUntilFinished());
    QCOMPARE(bench.trouble->first().first().value<RecordingTrouble>(), expected);
    QVERIFY2(elapsed < toldWithinMilliseconds, QByteArray::number(elapsed).constData());
    QVERIFY2(bench.finished->first().first().toBool(), "it says that nothing is kept");
    QCOMPARE(bench.trouble->size(), 1);
}

void RecordingDiskTest::verifyPlayable(const RecorderBench &bench, double seconds)
{
    const double playable = double(decoded(bench.recorder->url()).size()) / 44100;
    QVERIFY2(playable >= seconds - halfSample, QByteArray::number(playable).constData());
}

void RecordingDiskTest::verifyNextStartFinishes(const RecorderBench &bench)
{
    const FileURL file = bench.recorder->url();
    const auto playable = qint64(decoded(file).size());
    RecorderBench later;
    QCOMPARE(later.sound.recorderFactory->finishInterruptedRecordings({}, 60'000), 1);
    QVERIFY(!outermostBoxes(file).contains("moof"));
    QVERIFY(std::abs(probedSamples(file) - playable) <= 1024); // the last packet's share is not known any more
    QCOMPARE(later.sound.recorderFactory->finishInterruptedRecordings({}, 60'000), 0);
}

void RecordingDiskTest::fullDiskEndsTheRecording()
{
    const SmallFileSystem disk(folder(), "size=1m");
    QVERIFY(disk.isMounted());
    RecorderBench bench(nullptr, folder());
    QVERIFY(recordIntoFile(bench));
    const double before = double(decoded(bench.recorder->url()).size()) / 44100;
    m_since.start();
    disk.fill();
    verifyTold(bench, RecordingTrouble::DiskFull);
    verifyPlayable(bench, before);
    QCOMPARE(listed(), QStringList({QStringLiteral("filler"), QStringLiteral("message.m4a")}));
    disk.makeRoom();
    verifyNextStartFinishes(bench);
}

void RecordingDiskTest::brokenDiskEndsTheRecording()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(recordIntoFile(bench));
    const double before = double(decoded(bench.recorder->url()).size()) / 44100;
    m_since.start();
    const FailingCalls broken(FileCall::WriteAt, "message.m4a", 1, EIO);
    verifyTold(bench, RecordingTrouble::CannotWrite);
    QVERIFY(broken.failures() > 0);
    verifyPlayable(bench, before - runUp);
    QCOMPARE(listed(), QStringList(QStringLiteral("message.m4a")));
    QVERIFY2(!outermostBoxes(bench.recorder->url()).contains("moof"), "what was written could be finished, but was not");
}

/// As a network's file system that is full, or a stick that was pulled out: the write succeeds, and the disk does not have it.
void RecordingDiskTest::aDiskThatLosesWhatItTookEndsTheRecording()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(recordIntoFile(bench));
    const double before = double(decoded(bench.recorder->url()).size()) / 44100;
    m_since.start();
    const FailingCalls broken(FileCall::DataSync, "message.m4a", 1, ENOSPC);
    verifyTold(bench, RecordingTrouble::DiskFull);
    verifyPlayable(bench, before - runUp);
}

void RecordingDiskTest::aFileSystemThatCannotSyncIsNoTrouble()
{
    const FailingCalls unable(FileCall::DataSync, "message.m4a", 1, ENOSYS);
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.5));
    QTRY_VERIFY(unable.failures() > 0);
    QVERIFY(bench.waitForCapture(bench.recorder->currentTime() + 0.5));
    QVERIFY(bench.stopRecording());
    QCOMPARE(bench.trouble->size(), 0);
}

void RecordingDiskTest::theTroubleIsToldBeforeTheEndHoweverLateTheCaptureThreadIs()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(recordIntoFile(bench));
    QStringList told;
    connect(bench.recorder.get(), &AudioFileRecorder::troubleOccurred, this, [&] { told += QStringLiteral("trouble"); });
    connect(bench.recorder.get(), &AudioFileRecorder::finished, this, [&] { told += QStringLiteral("finished"); });
    const FailingCalls broken(FileCall::WriteAt, "message.m4a", 1, EIO);
    // The encoder finds so much to write when it goes on that it fails while the capture thread still stands.
    QVERIFY(stallThread("kest-recording", 500));
    QTest::qWait(400);
    QVERIFY(stallThread("kest-capture", 700));
    QTRY_COMPARE_WITH_TIMEOUT(told.size(), 2, 60'000);
    QCOMPARE(told, QStringList({QStringLiteral("trouble"), QStringLiteral("finished")}));
}

void RecordingDiskTest::diskThatFillsUpInTheMiddleOfFinishing_data()
{
    QTest::addColumn<qint64>("room");
    QTest::newRow("no room but for the recording's own end") << page;
    QTest::newRow("room for a half") << 3 * page;
}

void RecordingDiskTest::diskThatFillsUpInTheMiddleOfFinishing()
{
    QFETCH(qint64, room);
    const SmallFileSystem disk(folder(), "size=1m");
    QVERIFY(disk.isMounted());
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(2.5));
    bench.recorder->pause();
    QVERIFY(waitUntilWritten(bench, room + page));
    disk.fill(room);
    m_since.start();
    bench.recorder->stop();
    verifyTold(bench, RecordingTrouble::DiskFull);
    verifyPlayable(bench, bench.recorder->currentTime());
    QCOMPARE(listed(), QStringList({QStringLiteral("filler"), QStringLiteral("message.m4a")}));
    disk.makeRoom();
    verifyNextStartFinishes(bench);
}

void RecordingDiskTest::diskThatBreaksInTheMiddleOfFinishing_data()
{
    QTest::addColumn<FileCall>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("error");
    QTest::addColumn<RecordingTrouble>("told");
    QTest::newRow("write") << FileCall::WriteAt << 1 << EIO << RecordingTrouble::CannotWrite;
    QTest::newRow("sync") << FileCall::Sync << 1 << EIO << RecordingTrouble::CannotWrite;
    QTest::newRow("sync finds no room") << FileCall::Sync << 1 << ENOSPC << RecordingTrouble::DiskFull;
    QTest::newRow("rename") << FileCall::Rename << 1 << EIO << RecordingTrouble::CannotWrite;
}

void RecordingDiskTest::diskThatBreaksInTheMiddleOfFinishing()
{
    QFETCH(FileCall, call);
    QFETCH(int, number);
    QFETCH(int, error);
    QFETCH(RecordingTrouble, told);
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.6));
    {
        const FailingCalls broken(call, ".finishing", number, error);
        m_since.start();
        bench.recorder->stop();
        verifyTold(bench, told);
        QVERIFY2(broken.failures() > 0, "finishing takes fewer such calls");
    }
    verifyPlayable(bench, bench.recorder->currentTime());
    QCOMPARE(listed(), QStringList(QStringLiteral("message.m4a")));
    verifyNextStartFinishes(bench);
}

int main(int argc, char **argv)
{
    kest::testing::requirePrivateMounts();
    QCoreApplication application(argc, argv);
    RecordingDiskTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recordingdisk.moc"
