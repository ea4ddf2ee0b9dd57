#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

using namespace kest;
using namespace kest::test;

/// Killed just before or after any one of its calls on files, a recording
/// leaves sound that plays, or nothing: never an empty file, never a note of
/// its own that nobody takes away.
class RecordingKilledTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void atAnyCallOfItsBeginning_data();
    void atAnyCallOfItsBeginning();
    void withNothingButTheHeaderWritten();
    void aSlowDiskKeepsNoSoundOutOfTheFile();

private:
    void start(QProcess &program, const QString &under, uint kinds, uint call, bool after, int error);
    void recordUntilKilledAt(const QString &under, uint kinds, uint call, bool after);
    void verifyNothingBesideSound();
    QStringList listed(const QString &folder) const;

    const VirtualMicrophone m_microphone{sine(440, 0.3)};
    std::unique_ptr<QTemporaryDir> m_root;
};

void RecordingKilledTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    qputenv("XDG_STATE_HOME", m_root->filePath(QStringLiteral("state")).toLocal8Bit()); // each test remembers its own
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
}

QStringList RecordingKilledTest::listed(const QString &folder) const
{
    return QDir(m_root->filePath(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// See tools/faults/file_calls.cpp for the control file.
void RecordingKilledTest::start(QProcess &program, const QString &under, uint kinds, uint call, bool after, int error)
{
    QFile control(m_root->filePath(QStringLiteral("control")));
    QVERIFY(control.open(QIODevice::WriteOnly));
    const uint wanted[] = {kinds, call, after, uint(error), 0, 0};
    control.write(reinterpret_cast<const char *>(wanted), sizeof wanted);
    control.close();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(KEST_FILE_CALLS_LIBRARY));
    environment.insert(QStringLiteral("KEST_FILE_CALLS"), control.fileName());
    environment.insert(QStringLiteral("KEST_FILE_CALLS_UNDER"), under);
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/kest-test-recorder"),
                  {m_root->filePath(QStringLiteral("Recordings/message.m4a"))});
}

void RecordingKilledTest::recordUntilKilledAt(const QString &under, uint kinds, uint call, bool after)
{
    QProcess program;
    start(program, under, kinds, call, after, 0);
    QVERIFY(program.waitForFinished(60'000));
    QCOMPARE(program.exitStatus(), QProcess::CrashExit);
}

void RecordingKilledTest::verifyNothingBesideSound()
{
    RecorderBench bench;
    bench.sound.recorderFactory->finishInterruptedRecordings({}, 60'000);
    for (const QString &name : listed(QStringLiteral("Recordings"))) {
        QCOMPARE(name, QStringLiteral("message.m4a"));
        const QList<QByteArray> boxes = outermostBoxes(FileURL::fromPath(m_root->filePath(QStringLiteral("Recordings/") + name)));
        QVERIFY2(boxes.contains("mdat") && !boxes.contains("moof"), boxes.join(' ').constData());
    }
    QCOMPARE(listed(QStringLiteral("state/kest/unfinished-recordings")), QStringList());
}

void RecordingKilledTest::atAnyCallOfItsBeginning_data()
{
    QTest::addColumn<uint>("call");
    QTest::addColumn<bool>("after");
    for (uint call = 1; call <= 10; ++call) {
        QTest::addRow("before call %u", call) << call << false;
        QTest::addRow("after call %u", call) << call << true;
    }
}

void RecordingKilledTest::atAnyCallOfItsBeginning()
{
    QFETCH(uint, call);
    QFETCH(bool, after);
    constexpr uint any = 63;
    recordUntilKilledAt(m_root->path(), any, call, after);
    verifyNothingBesideSound();
}

void RecordingKilledTest::withNothingButTheHeaderWritten()
{
    constexpr uint writes = 2;
    recordUntilKilledAt(m_root->filePath(QStringLiteral("Recordings")), writes, 1, true);
    QCOMPARE(outermostBoxes(FileURL::fromPath(m_root->filePath(QStringLiteral("Recordings/message.m4a")))),
             QList<QByteArray>({"ftyp", "moov"}));
    verifyNothingBesideSound();
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList());
}

void RecordingKilledTest::aSlowDiskKeepsNoSoundOutOfTheFile()
{
    constexpr uint syncs = 4;
    constexpr int aMinute = 60'000;
    QProcess program;
    start(program, m_root->path(), syncs, 1, false, -aMinute);
    const QString file = m_root->filePath(QStringLiteral("Recordings/message.m4a"));
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(file).size() > 4096, aMinute / 2);
    program.kill();
    program.waitForFinished();
    verifyNothingBesideSound();
    QVERIFY(probedSamples(FileURL::fromPath(file)) > 4410);
}

QTEST_GUILESS_MAIN(RecordingKilledTest)
#include "tst_recordingkilled.moc"
