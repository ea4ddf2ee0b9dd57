#include "MadeRecording.h"

#include "platform/linux/sound/RecordingFinisher.h"
#include "support/FailingCalls.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

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

private:
    QString path(const QString &name) const { return m_root->filePath(name); }
    QByteArray contentOf(const QString &name) const;
    QStringList listed(const QString &folder = QStringLiteral("Recordings")) const;
    void open();
    void verifyFinished(const QString &name) const;

    const MadeRecording m_made = makeRecording({{40, 30, 20, 10}, {15, 25, 35, 45}});
    std::unique_ptr<QTemporaryDir> m_root;
    std::optional<RecordingFile> m_file; ///< Open, as it is while it is recorded into.
};

void RecordingFileTest::init()
{
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_root->path()).mkdir(QStringLiteral("Recordings")));
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

QTEST_GUILESS_MAIN(RecordingFileTest)
#include "tst_recordingfile.moc"
