#include "RecorderBench.h"

#include "platform/linux/sound/boxes/FinishedWriter.h"

#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace kest;
using namespace kest::test;

namespace {

constexpr double mostLostSeconds = 0.25;
constexpr int plentyMilliseconds = 60'000;

} // namespace

/// What a killed program leaves behind, and what the next start makes of it.
class RecordingCrashTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void killedRecordingIsPlayable_data();
    void killedRecordingIsPlayable();
    void nextStartFinishesIt();
    void nextStartNeedsNoPluginForIt();
    void nextStartFindsItInItsRenamedFolder();
    void nextStartFindsItInTheFolderOfToday();
    void fileOfAnotherBirthIsLeftAlone();
    void fileThatCannotBeOpenedIsTriedAgain();
    void recordingCutShortOfItsLengthIsNotFinished();
    void nextStartLeavesARunningRecordingAlone();
    void recordingKilledBeforeItBeganLeavesNothing();
    void destroyedRecorderFinishesItsFile();
    void folderRenamedWhileRecordingKeepsItsFile();

private:
    qint64 recordUntilKilledAfter(double seconds);
    void startRecorder();
    qint64 waitForSamples(qint64 samples);
    FileURL file() const;
    static void verifyOrdinary(const FileURL &file);

    std::unique_ptr<VirtualMicrophone> m_microphone;
    std::unique_ptr<QTemporaryDir> m_root;
    QProcess m_program;
};

void RecordingCrashTest::init()
{
    m_microphone = std::make_unique<VirtualMicrophone>(sine(440, 0.3));
    m_root = std::make_unique<QTemporaryDir>();
    qputenv("XDG_STATE_HOME", m_root->filePath(QStringLiteral("state")).toLocal8Bit()); // each test remembers its own
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
}

void RecordingCrashTest::cleanup()
{
    m_program.kill();
    m_program.waitForFinished();
    tellSoundServer("resume");
}

FileURL RecordingCrashTest::file() const
{
    return FileURL::fromPath(m_root->filePath(QStringLiteral("Recordings/message.m4a")));
}

void RecordingCrashTest::startRecorder()
{
    m_program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/kest-test-recorder"), {file().path()});
}

qint64 RecordingCrashTest::waitForSamples(qint64 samples)
{
    qint64 reported = 0;
    while (reported < samples && m_program.waitForReadyRead(plentyMilliseconds)) {
        while (m_program.canReadLine())
            reported = m_program.readLine().trimmed().toLongLong();
    }
    return reported;
}

/// Returns how many samples it had recorded.
qint64 RecordingCrashTest::recordUntilKilledAfter(double seconds)
{
    startRecorder();
    qint64 reported = waitForSamples(qint64(seconds * 44100));
    m_program.kill();
    m_program.waitForFinished();
    for (const QByteArray &line : m_program.readAll().split('\n'))
        reported = std::max(reported, line.toLongLong());
    return reported;
}

void RecordingCrashTest::verifyOrdinary(const FileURL &file)
{
    const QList<QByteArray> boxes = outermostBoxes(file);
    QVERIFY(boxes.indexOf("moov") >= 0);
    QVERIFY(boxes.indexOf("moov") < boxes.indexOf("mdat"));
    QVERIFY(!boxes.contains("moof"));
    QCOMPARE(probe(file, QStringLiteral("format_tags=major_brand")), "M4A");
}

void RecordingCrashTest::killedRecordingIsPlayable_data()
{
    QTest::addColumn<double>("seconds");
    for (const double seconds : {0.3, 0.45, 0.71, 1.0, 1.33, 2.2})
        QTest::addRow("after %.2f s", seconds) << seconds;
}

void RecordingCrashTest::killedRecordingIsPlayable()
{
    QFETCH(double, seconds);
    const qint64 recorded = recordUntilKilledAfter(seconds);
    const double playable = double(decoded(file()).size()) / 44100;
    const double lost = double(recorded) / 44100 - playable;
    QVERIFY2(lost <= mostLostSeconds, QByteArray::number(lost).constData());
}

void RecordingCrashTest::nextStartFinishesIt()
{
    const qint64 recorded = recordUntilKilledAfter(0.8);
    RecorderBench bench;
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    verifyOrdinary(file());
    const qint64 samples = probedSamples(file());
    QVERIFY(samples <= recorded + 44100); // what it printed last may be late, never early
    const double lost = double(recorded - samples) / 44100;
    QVERIFY2(lost <= mostLostSeconds, QByteArray::number(lost).constData());
    // Nothing is left to do, and nothing lies about.
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 0);
    QCOMPARE(QDir(m_root->filePath(QStringLiteral("Recordings"))).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void RecordingCrashTest::nextStartNeedsNoPluginForIt()
{
    recordUntilKilledAfter(0.5);
    PulseSoundOptions options;
    options.pulsePlugin = "/nowhere/kest-pulse.so";
    options.encoders = std::make_shared<EncoderLoader>("/nowhere/kest-encoder.so");
    RecorderBench bench(options);
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    verifyOrdinary(file());
}

void RecordingCrashTest::nextStartFindsItInItsRenamedFolder()
{
    recordUntilKilledAfter(0.5);
    QVERIFY(QDir(m_root->path()).rename(QStringLiteral("Recordings"), QStringLiteral("Spoken Letters")));
    RecorderBench bench;
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    verifyOrdinary(FileURL::fromPath(m_root->filePath(QStringLiteral("Spoken Letters/message.m4a"))));
}

void RecordingCrashTest::nextStartFindsItInTheFolderOfToday()
{
    recordUntilKilledAfter(0.5);
    QVERIFY(QDir(m_root->path()).mkpath(QStringLiteral("far/away")));
    QVERIFY(QDir(m_root->path()).rename(QStringLiteral("Recordings"), QStringLiteral("far/away/Recordings")));
    RecorderBench bench;
    const FolderURL today = FileURL::fromPath(m_root->filePath(QStringLiteral("far/away/Recordings")));
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({today}, plentyMilliseconds), 1);
    verifyOrdinary(today.appendingPathComponent(QStringLiteral("message.m4a")));
}

void RecordingCrashTest::fileOfAnotherBirthIsLeftAlone()
{
    recordUntilKilledAfter(0.5);
    // As if the inode had been given to a later file: what is remembered is of another birth.
    QDir journal(m_root->filePath(QStringLiteral("state/kest/unfinished-recordings")));
    QFile entry(journal.filePath(journal.entryList({QStringLiteral("*.json")}).value(0)));
    QVERIFY(entry.open(QIODevice::ReadWrite));
    QJsonObject remembered = QJsonDocument::fromJson(entry.readAll()).object();
    QVERIFY(remembered[u"born"].toString().toLongLong() > 0);
    remembered[u"born"] = QStringLiteral("1");
    QVERIFY(entry.resize(0) && entry.seek(0));
    entry.write(QJsonDocument(remembered).toJson());
    entry.close();
    const QString elsewhere = m_root->filePath(QStringLiteral("Recordings/other.m4a"));
    QVERIFY(QFile::rename(file().path(), elsewhere));
    RecorderBench bench;
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    QVERIFY(outermostBoxes(FileURL::fromPath(elsewhere)).contains("moof"));
}

void RecordingCrashTest::fileThatCannotBeOpenedIsTriedAgain()
{
    recordUntilKilledAfter(0.5);
    QVERIFY(QDir(m_root->path()).mkpath(QStringLiteral("far/away")));
    const QString away = m_root->filePath(QStringLiteral("far/away/message.m4a"));
    QVERIFY(QFile::rename(file().path(), away));
    QVERIFY(QFile::link(away, file().path())); // a link is refused, which is not the same as nothing there
    RecorderBench bench;
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    QVERIFY(QFile::remove(file().path()));
    QVERIFY(QFile::rename(away, file().path()));
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
    verifyOrdinary(file());
}

void RecordingCrashTest::recordingCutShortOfItsLengthIsNotFinished()
{
    const qint64 recorded = recordUntilKilledAfter(0.5);
    QFile from(file().path());
    QFile to(m_root->filePath(QStringLiteral("finished.m4a")));
    QVERIFY(from.open(QIODevice::ReadOnly) && to.open(QIODevice::ReadWrite));
    QVERIFY(copyAsFinished(from.handle(), to.handle(), recorded + 44100));
    QVERIFY(!copyAsFinished(from.handle(), to.handle(), std::nullopt));
}

void RecordingCrashTest::nextStartLeavesARunningRecordingAlone()
{
    startRecorder();
    QVERIFY(waitForSamples(22050) >= 22050);
    RecorderBench bench;
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 0);
    m_program.kill();
    m_program.waitForFinished();
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds), 1);
}

void RecordingCrashTest::recordingKilledBeforeItBeganLeavesNothing()
{
    m_microphone->hush(true);
    tellSoundServer("stall");
    startRecorder();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file().path()), plentyMilliseconds);
    m_program.kill();
    m_program.waitForFinished();
    RecorderBench bench;
    bench.sound.recorderFactory->finishInterruptedRecordings({}, plentyMilliseconds);
    // Killed before it was even remembered, the empty file may stay; never one that claims to be a recording.
    QVERIFY(!QFile::exists(file().path()) || QFile(file().path()).size() == 0);
}

void RecordingCrashTest::destroyedRecorderFinishesItsFile()
{
    RecorderBench bench;
    QVERIFY(bench.startRecording(0.5));
    const FileURL recorded = bench.recorder->url();
    bench.recorder.reset();
    QVERIFY(bench.sound.recorderFactory->waitForFinished(plentyMilliseconds));
    verifyOrdinary(recorded);
    QVERIFY(probedSamples(recorded) >= 22050);
}

void RecordingCrashTest::folderRenamedWhileRecordingKeepsItsFile()
{
    RecorderBench bench(nullptr, m_root->filePath(QStringLiteral("Recordings")).toLocal8Bit());
    QVERIFY(bench.startRecording(0.3));
    QVERIFY(QDir(m_root->path()).rename(QStringLiteral("Recordings"), QStringLiteral("Elsewhere")));
    QVERIFY(QFile::rename(m_root->filePath(QStringLiteral("Elsewhere/message.m4a")),
                          m_root->filePath(QStringLiteral("Elsewhere/renamed.m4a"))));
    QVERIFY(bench.waitForCapture(0.6));
    QVERIFY(bench.stopRecording());
    const FileURL now = FileURL::fromPath(m_root->filePath(QStringLiteral("Elsewhere/renamed.m4a")));
    QCOMPARE(bench.recorder->url(), now);
    verifyOrdinary(now);
    QCOMPARE(probedSamples(now), std::llround(bench.recorder->currentTime() * 44100));
}

QTEST_GUILESS_MAIN(RecordingCrashTest)
#include "tst_recordingcrash.moc"
