#include "MadeRecording.h"

#include "platform/linux/sound/FreeName.h"
#include "platform/linux/sound/RecordingFinisher.h"
#include "support/FailingCalls.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace kest;
using namespace kest::test;

/// Where a recording is once it is finished, whatever somebody, or the file system, did to its file before and meanwhile: all of
/// it is always there, and nothing of anybody else is replaced.
class RecordingFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void renameThatLosesTheOldFileLeavesTheFinishedOne_data();
    void renameThatLosesTheOldFileLeavesTheFinishedOne();
    void deletedFileIsSavedUnderItsName();
    void deletedFileIsSavedBesideAnotherOfItsName_data();
    void deletedFileIsSavedBesideAnotherOfItsName();
    void deletedFileIsSavedInItsRenamedFolder();
    void deletedFolderIsMadeAgain();
    void whereItsFolderCannotBeMadeAgainItIsSavedAtHome();
    void whereItsDiskDoesNotTakeItItIsSavedAtHome();
    void whereNoDiskTakesItThatIsToldAndTheCopyStays();
    void nameThatIsFullMakesRoomForItsNumber();
    void whereNothingCanBeSavedThatIsTold();
    void whatTheFileSystemKeepsOfADeletedFileIsNoPlaceForIt_data();
    void whatTheFileSystemKeepsOfADeletedFileIsNoPlaceForIt();
    void fileMovedWhileFinishingIsFinishedWhereItIs_data();
    void fileMovedWhileFinishingIsFinishedWhereItIs();
    void fileDeletedWhileFinishingIsKept();
    void fileReplacedWhileFinishingIsSavedBesideTheOther();
    void folderDeletedWhileFinishingIsMadeAgain();
    void fileOfAnotherAtTheHiddenNameIsNotWrittenInto();
    void linkAtTheHiddenNameIsNotFollowed();
    void whereTheHiddenNameCannotBeFreedAnotherIsTaken();
    void finishedCopyIsThePersonsAloneWhileItIsWritten();

private:
    QString path(const QString &name) const { return m_root->filePath(name); }
    QByteArray contentOf(const QString &name) const;
    QStringList listed(const QString &folder = QStringLiteral("Recordings")) const;
    void open();
    void put(const QString &name) const;
    void verifyFinished(const QString &name) const;
    QString hiddenName() const
    {
        return QStringLiteral("Recordings/.kest-%1.finishing").arg(m_file->inode());
    }

    const MadeRecording m_made = makeRecording({{40, 30, 20, 10}, {15, 25, 35, 45}});
    std::unique_ptr<QTemporaryDir> m_root;
    std::optional<RecordingFile> m_file; ///< Open, as it is while it is recorded into.
};

void RecordingFileTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("home")));
    qputenv("HOME", path(QStringLiteral("home")).toLocal8Bit());
    open();
}

void RecordingFileTest::open()
{
    FileFailure failure;
    m_file = RecordingFile::create(FileURL::fromPath(path(QStringLiteral("Recordings/a.m4a"))), &failure);
    QVERIFY2(m_file, qUtf8Printable(failure.detail));
    QCOMPARE(pwrite(m_file->descriptor(), m_made.bytes.constData(), size_t(m_made.bytes.size()), 0), m_made.bytes.size());
}

QByteArray RecordingFileTest::contentOf(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList RecordingFileTest::listed(const QString &folder) const
{
    return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

/// Another's file.
void RecordingFileTest::put(const QString &name) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::NewOnly));
    file.write("another");
}

/// It is there, whole and ordinary, and whoever asks is told so.
void RecordingFileTest::verifyFinished(const QString &name) const
{
    const QByteArray content = contentOf(name);
    QVERIFY2(!content.contains("moof"), "it was not finished");
    QVERIFY2(content.contains("moov") && content.endsWith(m_made.media), "not all of it is there");
    QCOMPARE(m_file->url().path(), path(name));
}

void RecordingFileTest::renameThatLosesTheOldFileLeavesTheFinishedOne_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("not found") << ENOENT;
    QTest::newRow("no access") << EACCES;
}

/// As Linux did over SMB: the file in the way is removed, then the change of name fails.
void RecordingFileTest::renameThatLosesTheOldFileLeavesTheFinishedOne()
{
    QFETCH(int, error);
    const auto lose = [this] { QFile::remove(path(QStringLiteral("Recordings/a.m4a"))); };
    const FailingCalls network(FileCall::Rename, ".finishing", 1, error, lose);
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(network.failures(), 1);
    QCOMPARE(listed(), QStringList(QStringLiteral("a.m4a")));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::deletedFileIsSavedUnderItsName()
{
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(listed(), QStringList(QStringLiteral("a.m4a")));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::deletedFileIsSavedBesideAnotherOfItsName_data()
{
    QTest::addColumn<FileCall>("unknown");
    QTest::newRow("where a name can be given without replacing") << FileCall::Append;
    QTest::newRow("where only links do not replace") << FileCall::RenameToFree;
    QTest::newRow("where there are no links either") << FileCall::RenameOrLinkToFree;
}

void RecordingFileTest::deletedFileIsSavedBesideAnotherOfItsName()
{
    QFETCH(FileCall, unknown);
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    put(QStringLiteral("Recordings/a.m4a"));
    const FailingCalls fileSystem(unknown, ".finishing", 1, EINVAL);
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), "another");
    QCOMPARE(listed(), QStringList({QStringLiteral("a 2.m4a"), QStringLiteral("a.m4a")}));
    verifyFinished(QStringLiteral("Recordings/a 2.m4a"));
}

void RecordingFileTest::deletedFileIsSavedInItsRenamedFolder()
{
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    QVERIFY(QDir(m_root->path()).rename(QStringLiteral("Recordings"), QStringLiteral("Elsewhere")));
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    verifyFinished(QStringLiteral("Elsewhere/a.m4a"));
    QVERIFY(!QFile::exists(path(QStringLiteral("Recordings"))));
}

void RecordingFileTest::deletedFolderIsMadeAgain()
{
    QVERIFY(QDir(path(QStringLiteral("Recordings"))).removeRecursively());
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::whereItsFolderCannotBeMadeAgainItIsSavedAtHome()
{
    QVERIFY(QDir(path(QStringLiteral("Recordings"))).removeRecursively());
    put(QStringLiteral("Recordings"));
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(contentOf(QStringLiteral("Recordings")), "another");
    verifyFinished(QStringLiteral("home/a.m4a"));
}

void RecordingFileTest::whereItsDiskDoesNotTakeItItIsSavedAtHome()
{
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    const FailingCalls disk(FileCall::Sync, "Recordings/.kest", 1, ENOSPC);
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QVERIFY(disk.failures() > 0);
    verifyFinished(QStringLiteral("home/a.m4a"));
    QCOMPARE(listed(), QStringList());
}

void RecordingFileTest::whereNoDiskTakesItThatIsToldAndTheCopyStays()
{
    QVERIFY(QFile::remove(path(QStringLiteral("Recordings/a.m4a"))));
    const FailingCalls disk(FileCall::Sync, ".finishing", 1, ENOSPC);
    const auto failed = finishRecording(*m_file, std::nullopt);
    QVERIFY(failed && failed->isDiskFull());
    QVERIFY(contentOf(hiddenName()).endsWith(m_made.media));
    QCOMPARE(listed(QStringLiteral("home")), QStringList());
}

void RecordingFileTest::nameThatIsFullMakesRoomForItsNumber()
{
    const QByteArray long255 = QByteArray("a") + QByteArray("ü").repeated(125) + ".m4a"; // bytes
    const QByteArray second = numberedName(long255, 2);
    QCOMPARE(second, QByteArray("a") + QByteArray("ü").repeated(124) + " 2.m4a");
    QCOMPARE(numberedName(long255, 1), long255);
    QCOMPARE(numberedName(QByteArray("x").repeated(255), 10), QByteArray("x").repeated(252) + " 10");
}

void RecordingFileTest::whereNothingCanBeSavedThatIsTold()
{
    QVERIFY(QDir(path(QStringLiteral("Recordings"))).removeRecursively());
    put(QStringLiteral("Recordings"));
    QVERIFY(QDir(path(QStringLiteral("home"))).removeRecursively());
    QVERIFY(finishRecording(*m_file, std::nullopt));
}

void RecordingFileTest::whatTheFileSystemKeepsOfADeletedFileIsNoPlaceForIt_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("NFS") << QStringLiteral(".nfs000000000000a1b200000001");
    QTest::newRow("SMB") << QStringLiteral(".__smbfile_silly0001");
    QTest::newRow("FUSE") << QStringLiteral(".fuse_hidden0000a1b200000001");
}

/// A file system of several machines gives such a name to a deleted file, and takes it away once nobody has it open.
void RecordingFileTest::whatTheFileSystemKeepsOfADeletedFileIsNoPlaceForIt()
{
    QFETCH(QString, name);
    QVERIFY(QFile::rename(path(QStringLiteral("Recordings/a.m4a")), path(QStringLiteral("Recordings/") + name)));
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::fileMovedWhileFinishingIsFinishedWhereItIs_data()
{
    QTest::addColumn<QString>("to");
    QTest::newRow("renamed") << QStringLiteral("Recordings/b.m4a");
    QTest::newRow("moved") << QStringLiteral("Elsewhere/b.m4a");
}

void RecordingFileTest::fileMovedWhileFinishingIsFinishedWhereItIs()
{
    QFETCH(QString, to);
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Elsewhere")));
    const auto move = [&] { QFile::rename(path(QStringLiteral("Recordings/a.m4a")), path(to)); };
    const FailingCalls person(FileCall::Sync, ".finishing", 1, 0, move);
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(listed() + listed(QStringLiteral("Elsewhere")), QStringList(QFileInfo(to).fileName()));
    verifyFinished(to);
}

void RecordingFileTest::fileDeletedWhileFinishingIsKept()
{
    const FailingCalls person(FileCall::Sync, ".finishing", 1, 0,
                              [this] { QFile::remove(path(QStringLiteral("Recordings/a.m4a"))); });
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::fileReplacedWhileFinishingIsSavedBesideTheOther()
{
    const FailingCalls person(FileCall::Sync, ".finishing", 1, 0, [this] {
        QFile::remove(path(QStringLiteral("Recordings/a.m4a")));
        put(QStringLiteral("Recordings/a.m4a"));
    });
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(contentOf(QStringLiteral("Recordings/a.m4a")), "another");
    verifyFinished(QStringLiteral("Recordings/a 2.m4a"));
}

void RecordingFileTest::folderDeletedWhileFinishingIsMadeAgain()
{
    const FailingCalls person(FileCall::Sync, ".finishing", 1, 0,
                              [this] { QDir(path(QStringLiteral("Recordings"))).removeRecursively(); });
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(listed(), QStringList(QStringLiteral("a.m4a")));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

/// In a folder that several people share.
void RecordingFileTest::fileOfAnotherAtTheHiddenNameIsNotWrittenInto()
{
    put(hiddenName());
    QFile planted(path(hiddenName()));
    QVERIFY(planted.open(QIODevice::ReadOnly)); // as whoever put it there would
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(planted.readAll(), "another");
    QCOMPARE(listed(), QStringList(QStringLiteral("a.m4a")));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::linkAtTheHiddenNameIsNotFollowed()
{
    put(QStringLiteral("target"));
    QVERIFY(QFile::link(path(QStringLiteral("target")), path(hiddenName())));
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(contentOf(QStringLiteral("target")), "another");
    QCOMPARE(listed(), QStringList(QStringLiteral("a.m4a")));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

/// As in a folder where everybody may remove only what is their own.
void RecordingFileTest::whereTheHiddenNameCannotBeFreedAnotherIsTaken()
{
    put(hiddenName());
    const FailingCalls sticky(FileCall::Remove, ".finishing", 1, EPERM);
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(contentOf(hiddenName()), "another");
    QCOMPARE(listed(), QStringList({QFileInfo(hiddenName()).fileName(), QStringLiteral("a.m4a")}));
    verifyFinished(QStringLiteral("Recordings/a.m4a"));
}

void RecordingFileTest::finishedCopyIsThePersonsAloneWhileItIsWritten()
{
    QVERIFY(QFile::setPermissions(path(QStringLiteral("Recordings/a.m4a")), QFile::ReadOwner | QFile::WriteOwner));
    mode_t atFirst = 0;
    const FailingCalls look(FileCall::WriteAt, ".finishing", 1, 0, [&] {
        struct stat status = {};
        stat(QFile::encodeName(path(hiddenName())).constData(), &status);
        atFirst = status.st_mode & 0777;
    });
    QVERIFY(!finishRecording(*m_file, std::nullopt));
    QCOMPARE(atFirst, mode_t(0600));
}

QTEST_GUILESS_MAIN(RecordingFileTest)
#include "tst_recordingfile.moc"
