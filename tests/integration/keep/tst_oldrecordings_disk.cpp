#include "TrashScene.h"
#include "app/FolderBookmarks.h"
#include "app/OldRecordings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"
#include "platform/linux/desktop/PosixFolderContents.h"
#include "support/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace kest;
using namespace kest::testing;
using namespace std::chrono_literals;

namespace {

// A bookmark that is the folder's path.
class PathBookmarks : public BookmarkStore
{
public:
    std::optional<QByteArray> bookmarkData(const FolderURL &folder, Error *) override { return folder.nativePath(); }
    std::optional<Resolved> resolveBookmarkData(const QByteArray &data, Error *) override
    {
        return Resolved {FolderURL::fromNativePath(data)};
    }
    std::unique_ptr<HeldFolder> hold(const FolderURL &folder, const QByteArray &) override
    {
        return std::make_unique<HeldFolder>(folder);
    }
};

} // namespace

// Files cannot be made in the past, so here the present moves into the future.
class TestOldRecordingsDisk : public QObject
{
    Q_OBJECT

    std::unique_ptr<TrashScene> m_s;
    std::unique_ptr<UserDefaults> m_defaults;
    PathBookmarks m_bookmarks;
    PosixFolderContents m_contents;

    void cleanUp(qint64 choice, std::chrono::nanoseconds later = 0s)
    {
        FolderBookmarks folders(*m_defaults, m_bookmarks);
        OldRecordings(folders, *m_defaults, m_contents, m_s->subject)
            .deleteOldFilesChoice(choice, FileTime(std::chrono::system_clock::now()) + later);
    }

    bool record(const QByteArray &name) { return write(m_s->folder + '/' + name, name); }

private Q_SLOTS:
    void init()
    {
        m_s = std::make_unique<TrashScene>();
        m_defaults = std::make_unique<UserDefaults>(QFile::decodeName(m_s->root + "/settings.ini"));
        m_defaults->registerDefaults({{SettingsKeys::bTrashNotDelete, true},
                                      {SettingsKeys::dAudioRecordingFolder, m_s->folder}});
    }

    void choiceOneTakesWhatIsTwoDaysOldAndLeavesWhatIsTwoHoursOld()
    {
        QVERIFY(record("a.m4a"));
        cleanUp(1, 2h);
        QVERIFY(there(m_s->folder + "/a.m4a"));
        cleanUp(1, 48h);
        QVERIFY(!there(m_s->folder + "/a.m4a"));
        QCOMPARE(read(m_s->trash + "/files/a.m4a"), QByteArray("a.m4a"));
    }

    void theOtherChoicesWaitSevenAndThirtyDays()
    {
        QVERIFY(record("a.m4a"));
        cleanUp(2, 7 * 24h - 1min);
        cleanUp(3, 30 * 24h - 1min);
        QVERIFY(there(m_s->folder + "/a.m4a"));
        cleanUp(2, 7 * 24h + 1min);
        QVERIFY(!there(m_s->folder + "/a.m4a"));
        QVERIFY(record("b.m4a"));
        cleanUp(3, 30 * 24h + 1min);
        QVERIFY(!there(m_s->folder + "/b.m4a"));
    }

    void otherFilesHiddenOnesAndThoseInSubfoldersStay()
    {
        for (const char *name : {"note.txt", "old.M4A", ".x.m4a"})
            QVERIFY(record(name));
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->folder + "/sub")) && record("sub/y.m4a"));
        cleanUp(1, 48h);
        for (const char *name : {"note.txt", "old.M4A", ".x.m4a", "sub/y.m4a"})
            QVERIFY(there(m_s->folder + '/' + name));
        QVERIFY(!there(m_s->trash));
    }

    void anUnknownChoiceTakesTheRecordingOfAMomentAgo()
    {
        for (const int choice : {4, -1}) {
            QVERIFY(record("a.m4a"));
            cleanUp(choice);
            QVERIFY(!there(m_s->folder + "/a.m4a"));
        }
        QCOMPARE(listed(m_s->trash + "/files").size(), 2);
    }

    void withoutTheTrashTheyAreGone()
    {
        m_defaults->setBool(false, SettingsKeys::bTrashNotDelete);
        QVERIFY(record("a.m4a") && record("note.txt"));
        cleanUp(1, 48h);
        QVERIFY(!there(m_s->folder + "/a.m4a"));
        QVERIFY(there(m_s->folder + "/note.txt"));
        QVERIFY(!there(m_s->trash));
    }

    void aFolderNamedLikeARecordingGoesToo_data()
    {
        QTest::addColumn<bool>("trashNotDelete");
        QTest::newRow("trash") << true;
        QTest::newRow("delete") << false;
    }

    void aFolderNamedLikeARecordingGoesToo()
    {
        QFETCH(bool, trashNotDelete);
        m_defaults->setBool(trashNotDelete, SettingsKeys::bTrashNotDelete);
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->folder + "/f.m4a")) && record("f.m4a/note.txt"));
        cleanUp(1, 48h);
        QVERIFY(!there(m_s->folder + "/f.m4a"));
        QCOMPARE(there(m_s->trash + "/files/f.m4a/note.txt"), trashNotDelete);
    }

    void aLinkGoesAndWhatItPointsToStays_data() { aFolderNamedLikeARecordingGoesToo_data(); }

    void aLinkGoesAndWhatItPointsToStays()
    {
        QFETCH(bool, trashNotDelete);
        m_defaults->setBool(trashNotDelete, SettingsKeys::bTrashNotDelete);
        QVERIFY(write(m_s->root + "/precious", "x"));
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->root + "/album")) && write(m_s->root + "/album/song", "x"));
        QCOMPARE(::symlink("../../precious", (m_s->folder + "/l.m4a").constData()), 0);
        QCOMPARE(::symlink("../../album", (m_s->folder + "/d.m4a").constData()), 0);
        cleanUp(1, 48h);
        QVERIFY(listed(m_s->folder).isEmpty());
        QCOMPARE(read(m_s->root + "/precious"), QByteArray("x"));
        QCOMPARE(read(m_s->root + "/album/song"), QByteArray("x"));
    }

    void aFolderThatCannotBeReadIsSilentlyLeftAlone()
    {
        m_defaults->setObject(m_s->root + "/gone", SettingsKeys::dAudioRecordingFolder);
        QTest::failOnWarning(QRegularExpression(u".*"_qs));
        cleanUp(4);
        QVERIFY(!there(m_s->trash));
    }

    // At quit a person waits for this. In memory: a disk's file system is slow right after as many deletions, as
    // tests make them (ext4 does not use a number again for a minute and searches on).
    void tenThousandRecordingsTakeBoundedTime_data() { aFolderNamedLikeARecordingGoesToo_data(); }

    void tenThousandRecordingsTakeBoundedTime()
    {
        QFETCH(bool, trashNotDelete);
        const SmallFileSystem memory(m_s->root, "size=256m");
        QVERIFY(memory.isMounted() && QDir().mkpath(QFile::decodeName(m_s->folder)));
        m_defaults->setBool(trashNotDelete, SettingsKeys::bTrashNotDelete);
        for (int at = 0; at < 10'000; ++at)
            QVERIFY(record("2024-03-05_14-07-" + QByteArray::number(at) + ".m4a"));
        QElapsedTimer timer;
        timer.start();
        cleanUp(1, 48h);
        const auto taken = timer.elapsed();
        qInfo("10,000 recordings: %lld ms", static_cast<long long>(taken));
        QVERIFY(listed(m_s->folder).isEmpty());
        QCOMPARE(there(m_s->trash) ? listed(m_s->trash + "/files").size() : 0, trashNotDelete ? 10'000 : 0);
        QVERIFY2(taken < 5'000, "half a second for each thousand");
    }
};

int main(int argc, char **argv)
{
    requirePrivateMounts();
    QCoreApplication application(argc, argv);
    TestOldRecordingsDisk test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_oldrecordings_disk.moc"
