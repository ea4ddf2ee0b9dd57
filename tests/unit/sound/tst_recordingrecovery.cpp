#include "MadeRecording.h"

#include "platform/linux/sound/RecordingFinisher.h"
#include "platform/linux/sound/RecordingJournal.h"
#include "platform/linux/sound/RecordingRecovery.h"
#include "support/FailingCalls.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace kest;
using namespace kest::test;

/// What the next start makes of a recording and of what was hidden beside it, whatever happened in between.
class RecordingRecoveryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void hiddenHalfOfADeletedRecordingIsRemoved();
    void hiddenHalfOfARecordingMovedAwayIsRemoved();
    void hiddenHalvesUnderEveryNameAreRemoved();
    void hiddenWholeCopyOfALostRecordingIsKept();
    void hiddenWholeCopyStaysBesideAnotherFileOfItsName();
    void hiddenCopyThatCannotBeReadNowStays();
    void hiddenWholeCopyOfAFinishedRecordingIsRemoved();
    void whereAFolderCannotBeReadItIsTriedAgain();
    void whereThereIsTooMuchToLookThroughItIsTriedAgain();
    void entryThatCannotBeReadStays();

private:
    QString path(const QString &name) const { return m_root->filePath(name); }
    QString hidden(const QString &number = {}) const
    {
        return QStringLiteral("Recordings/.kest-%1%2.finishing").arg(m_inode).arg(number);
    }
    void put(const QString &name, const QByteArray &content) const;
    QByteArray contentOf(const QString &name) const;
    QByteArray finished() const;
    QStringList listed(const QString &folder) const;
    QStringList remembered() const { return listed(QStringLiteral("state/kest/unfinished-recordings")); }
    void recover(const QList<FolderURL> &folders = {}) const;

    const MadeRecording m_made = makeRecording({{40, 30, 20, 10}, {15, 25, 35, 45}});
    std::unique_ptr<QTemporaryDir> m_root;
    QByteArray m_journal;
    quint64 m_inode = 0;
};

/// An unfinished recording of a killed program.
void RecordingRecoveryTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    m_journal = QFile::encodeName(path(QStringLiteral("state/kest/unfinished-recordings")));
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Elsewhere")));
    const FileURL wanted = FileURL::fromPath(path(QStringLiteral("Recordings/a.m4a")));
    const auto entry = RecordingJournal(m_journal).announce(wanted);
    FileFailure failure;
    const auto file = RecordingFile::create(wanted, &failure);
    QVERIFY(entry && file && entry->confirm(*file));
    QCOMPARE(pwrite(file->descriptor(), m_made.bytes.constData(), size_t(m_made.bytes.size()), 0), m_made.bytes.size());
    m_inode = file->inode();
}

void RecordingRecoveryTest::put(const QString &name, const QByteArray &content) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::NewOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray RecordingRecoveryTest::contentOf(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The recording as an ordinary file.
QByteArray RecordingRecoveryTest::finished() const
{
    const auto made = fileOf(m_made.bytes);
    FileFailure failure;
    auto file = RecordingFile::open(FileURL::fromPath(made->fileName()), &failure);
    if (!file || finishRecording(*file, std::nullopt))
        return {};
    QFile ordinary(made->fileName());
    return ordinary.open(QIODevice::ReadOnly) ? ordinary.readAll() : QByteArray();
}

QStringList RecordingRecoveryTest::listed(const QString &folder) const
{
    return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void RecordingRecoveryTest::recover(const QList<FolderURL> &folders) const
{
    RecordingRecovery(folders).finish(RecordingJournal(m_journal).interrupted());
}

void RecordingRecoveryTest::hiddenHalfOfADeletedRecordingIsRemoved()
{
    put(hidden(), finished().chopped(20));
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    recover();
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList());
    QCOMPARE(remembered(), QStringList());
}

void RecordingRecoveryTest::hiddenHalfOfARecordingMovedAwayIsRemoved()
{
    put(hidden(), finished().chopped(20));
    QVERIFY(QFile::rename(path(QStringLiteral("Recordings/a.m4a")), path(QStringLiteral("Elsewhere/a.m4a"))));
    recover({FileURL::fromPath(path(QStringLiteral("Elsewhere")))});
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList());
    QCOMPARE(contentOf(QStringLiteral("Elsewhere/a.m4a")), finished());
}

void RecordingRecoveryTest::hiddenHalvesUnderEveryNameAreRemoved()
{
    put(hidden(), finished().chopped(20));
    put(hidden(QStringLiteral("-2")), finished().chopped(30));
    recover();
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList(QStringLiteral("a.m4a")));
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), finished());
}

void RecordingRecoveryTest::hiddenWholeCopyOfALostRecordingIsKept()
{
    put(hidden(), finished());
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    recover();
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList(QStringLiteral("a.m4a")));
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), finished());
    QCOMPARE(remembered(), QStringList());
}

void RecordingRecoveryTest::hiddenWholeCopyStaysBesideAnotherFileOfItsName()
{
    put(hidden(), finished());
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    put(QStringLiteral("Recordings/a.m4a"), "another");
    recover();
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), "another");
    QCOMPARE(contentOf(QStringLiteral("Recordings/a 2.m4a")), finished());
    QCOMPARE(listed(QStringLiteral("Recordings")).size(), 2);
}

void RecordingRecoveryTest::hiddenCopyThatCannotBeReadNowStays()
{
    put(hidden(), finished());
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    {
        const FailingCalls disk(FileCall::Read, ".finishing", 1, EIO);
        recover();
        QVERIFY(disk.failures() > 0);
    }
    QCOMPARE(remembered().size(), 1);
    recover();
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), finished());
    QCOMPARE(remembered(), QStringList());
}

void RecordingRecoveryTest::hiddenWholeCopyOfAFinishedRecordingIsRemoved()
{
    put(hidden(QStringLiteral("-2")), finished());
    recover();
    QCOMPARE(listed(QStringLiteral("Recordings")), QStringList(QStringLiteral("a.m4a")));
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), finished());
}

void RecordingRecoveryTest::whereAFolderCannotBeReadItIsTriedAgain()
{
    QVERIFY(QFile::rename(path(QStringLiteral("Recordings/a.m4a")), path(QStringLiteral("Elsewhere/b.m4a"))));
    QVERIFY(QFile::link(path(QStringLiteral("round")), path(QStringLiteral("round"))));
    // Root may read every folder: a link to itself is what not even root can open.
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("deep")));
    QVERIFY(QDir(m_root->path()).rename(QStringLiteral("Elsewhere"), QStringLiteral("deep/Elsewhere")));
    recover({FileURL::fromPath(path(QStringLiteral("round")))});
    QCOMPARE(remembered().size(), 1);
    recover({FileURL::fromPath(path(QStringLiteral("deep/Elsewhere")))});
    QCOMPARE(remembered(), QStringList());
    QCOMPARE(contentOf(QStringLiteral("deep/Elsewhere/b.m4a")), finished());
}

void RecordingRecoveryTest::whereThereIsTooMuchToLookThroughItIsTriedAgain()
{
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    const QByteArray folder = QFile::encodeName(path(QStringLiteral("Recordings/")));
    for (int number = 0; number <= 20'000; ++number)
        QCOMPARE(mknod((folder + QByteArray::number(number)).constData(), S_IFREG | 0600, 0), 0);
    recover();
    QCOMPARE(remembered().size(), 1);
}

void RecordingRecoveryTest::entryThatCannotBeReadStays()
{
    const FailingCalls disk(FileCall::Read, ".json", 1, EIO);
    recover();
    QCOMPARE(disk.failures(), 1);
    QCOMPARE(remembered().size(), 1);
}

QTEST_GUILESS_MAIN(RecordingRecoveryTest)
#include "tst_recordingrecovery.moc"
