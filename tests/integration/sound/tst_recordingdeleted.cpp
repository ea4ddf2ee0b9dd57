#include "RecorderBench.h"

#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cmath>

using namespace kest;
using namespace kest::test;

/// A recording whose file is taken away while it runs is saved whole at Stop, and whoever listens is told where.
class RecordingDeletedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fileDeletedWhileRecordingIsSavedAtStop();
    void folderDeletedWhileRecordingIsMadeAgainAtStop();
    void fileOfAnotherAtItsNameStaysUntouched();
    void folderMovedToAnotherDiskWhileRecordingIsMadeAgainAtStop();

private:
    QString file(const QString &name = QStringLiteral("message.m4a")) const
    {
        return m_root->filePath(QStringLiteral("Recordings/") + name);
    }
    QByteArray folder() const { return m_root->filePath(QStringLiteral("Recordings")).toLocal8Bit(); }
    void verifySaved(const RecorderBench &bench, const QString &path) const;

    const VirtualMicrophone m_microphone{sine(440, 0.3)};
    std::unique_ptr<QTemporaryDir> m_root;
};

void RecordingDeletedTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    qputenv("XDG_STATE_HOME", m_root->filePath(QStringLiteral("state")).toLocal8Bit()); // each test remembers its own
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
}

/// All of it, as an ordinary file, and nothing is left to be done.
void RecordingDeletedTest::verifySaved(const RecorderBench &bench, const QString &path) const
{
    QVERIFY(bench.trouble->isEmpty());
    QCOMPARE(bench.recorder->url(), FileURL::fromPath(path));
    QVERIFY(!outermostBoxes(bench.recorder->url()).contains("moof"));
    QVERIFY(bench.recorder->currentTime() >= 0.9);
    QCOMPARE(probedSamples(bench.recorder->url()), std::llround(bench.recorder->currentTime() * 44100));
    const QDir remembered(m_root->filePath(QStringLiteral("state/kest/unfinished-recordings")));
    QCOMPARE(remembered.entryList(QDir::Files | QDir::Hidden), QStringList());
}

void RecordingDeletedTest::fileDeletedWhileRecordingIsSavedAtStop()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.3));
    QVERIFY(QFile::remove(file()));
    QVERIFY(bench.waitForCapture(0.9));
    QVERIFY(bench.stopRecording());
    verifySaved(bench, file());
}

void RecordingDeletedTest::folderDeletedWhileRecordingIsMadeAgainAtStop()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.3));
    QVERIFY(QDir(file(QStringLiteral("."))).removeRecursively());
    QVERIFY(bench.waitForCapture(0.9));
    QVERIFY(bench.stopRecording());
    verifySaved(bench, file());
}

void RecordingDeletedTest::fileOfAnotherAtItsNameStaysUntouched()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.3));
    QVERIFY(QFile::remove(file()));
    QFile other(file());
    QVERIFY(other.open(QIODevice::ReadWrite));
    other.write("another");
    QVERIFY(bench.waitForCapture(0.9));
    QVERIFY(bench.stopRecording());
    verifySaved(bench, file(QStringLiteral("message 2.m4a")));
    QVERIFY(other.seek(0));
    QCOMPARE(other.readAll(), "another");
    QVERIFY(QFile(file()).size() == other.size());
}

/// As a move between file systems does it: the part that is there is copied, then taken away.
void RecordingDeletedTest::folderMovedToAnotherDiskWhileRecordingIsMadeAgainAtStop()
{
    RecorderBench bench(nullptr, folder());
    QVERIFY(bench.startRecording(0.3));
    const QString away = m_root->filePath(QStringLiteral("away.m4a"));
    QVERIFY(QFile::copy(file(), away));
    QVERIFY(QDir(file(QStringLiteral("."))).removeRecursively());
    const qint64 copied = QFile(away).size();
    QVERIFY(bench.waitForCapture(0.9));
    QVERIFY(bench.stopRecording());
    verifySaved(bench, file());
    QCOMPARE(QFile(away).size(), copied);
}

QTEST_GUILESS_MAIN(RecordingDeletedTest)
#include "tst_recordingdeleted.moc"
