#include "MadeRecording.h"
#include "platform/linux/sound/RecordingJournal.h"
#include "platform/linux/sound/RecordingRecovery.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace kest;

/// Who may read and write the list of unfinished recordings. What an entry names is rewritten at the next start, so
/// nobody else may put one there.
class TestRecordingJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        m_folder = QFile::encodeName(m_root->path()) + "/state/kest/unfinished-recordings";
    }

    void listAndEntriesAreThePersonsAlone()
    {
        const mode_t before = ::umask(0);
        const auto entry = rememberOne();
        ::umask(before);
        QVERIFY(entry);
        QCOMPARE(modeOf(m_folder), mode_t(0700));
        QCOMPARE(modeOf(m_folder + "/.."), mode_t(0700));
        QCOMPARE(modeOf(QFile::encodeName(onlyEntry())), mode_t(0600));
    }

    void aListThatWasOpenToOthersIsClosed()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(m_folder)));
        ::chmod(m_folder.constData(), 0777);
        QVERIFY(rememberOne());
        QCOMPARE(modeOf(m_folder), mode_t(0700));
    }

    void anEntryOfAKilledProgramIsFound()
    {
        rememberOne(); // dropped without being done
        QCOMPARE(RecordingJournal(m_folder).interrupted().size(), size_t(1));
    }

    void anEntryThatOthersCouldHaveWrittenIsLeftAlone()
    {
        rememberOne();
        for (const mode_t mode : {0620, 0602, 0666}) {
            ::chmod(QFile::encodeName(onlyEntry()).constData(), mode);
            QVERIFY(RecordingJournal(m_folder).interrupted().empty());
            QVERIFY(!onlyEntry().isEmpty());
        }
    }

    void anEntryOfSomebodyElseIsLeftAlone()
    {
        rememberOne();
        QVERIFY2(::chown(QFile::encodeName(onlyEntry()).constData(), 65534, 65534) == 0, "only root can give a file away");
        QVERIFY(RecordingJournal(m_folder).interrupted().empty());
    }

    void linksAndPipesAreNoEntries()
    {
        rememberOne();
        const QByteArray entry = QFile::encodeName(onlyEntry());
        const QByteArray elsewhere = QFile::encodeName(m_root->path()) + "/elsewhere";
        QCOMPARE(::rename(entry.constData(), elsewhere.constData()), 0);
        QCOMPARE(::symlink(elsewhere.constData(), entry.constData()), 0);
        QCOMPARE(::mkfifo((m_folder + "/pipe.json").constData(), 0600), 0);
        QVERIFY(RecordingJournal(m_folder).interrupted().empty());
        QVERIFY(QFile::exists(QFile::decodeName(elsewhere)));
    }

    void aRecordingThatBecameALinkIsNotFinished()
    {
        rememberOne();
        const QString elsewhere = m_root->filePath(QStringLiteral("elsewhere.m4a"));
        const QByteArray unfinished = test::makeRecording({{40, 30, 20, 10}}).bytes;
        QFile target(elsewhere);
        QVERIFY(target.open(QIODevice::ReadWrite));
        target.write(unfinished);
        target.close();
        const QString recording = m_root->filePath(QStringLiteral("a.m4a"));
        QVERIFY(QFile::remove(recording));
        QVERIFY(QFile::link(elsewhere, recording));
        RecordingRecovery({}).finish(RecordingJournal(m_folder).interrupted());
        QVERIFY(QFileInfo(recording).isSymLink());
        QVERIFY(target.open(QIODevice::ReadOnly));
        QCOMPARE(target.readAll(), unfinished);
    }

private:
    std::unique_ptr<RecordingJournal::Entry> rememberOne()
    {
        const FileURL wanted = FileURL::fromPath(m_root->filePath(QStringLiteral("a.m4a")));
        auto entry = RecordingJournal(m_folder).announce(wanted);
        FileFailure failure;
        const auto file = RecordingFile::create(wanted, &failure);
        return entry && file && entry->confirm(*file) ? std::move(entry) : nullptr;
    }

    QString onlyEntry() const
    {
        const QFileInfoList found = QDir(QFile::decodeName(m_folder)).entryInfoList(QDir::Files);
        return found.size() == 1 ? found.first().filePath() : QString();
    }

    static mode_t modeOf(const QByteArray &path)
    {
        struct stat status = {};
        return ::stat(path.constData(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    std::unique_ptr<QTemporaryDir> m_root;
    QByteArray m_folder;
};

QTEST_GUILESS_MAIN(TestRecordingJournal)
#include "tst_recordingjournal.moc"
