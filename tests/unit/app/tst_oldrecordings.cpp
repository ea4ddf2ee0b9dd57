#include "app/FolderBookmarks.h"
#include "app/OldRecordings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"
#include "platform/Trash.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace kest;
using namespace std::chrono_literals;

namespace {

const FileTime present = FileTime(std::chrono::seconds(1'700'000'000)) + 5ns;

// One bookmark, found or not.
class FakeBookmarkStore : public BookmarkStore
{
public:
    std::optional<QByteArray> bookmarkData(const FolderURL &, Error *) override { return {}; }
    std::optional<Resolved> resolveBookmarkData(const QByteArray &, Error *) override
    {
        return found ? std::optional(Resolved {FolderURL::fromNativePath("/r")}) : std::nullopt;
    }
    std::unique_ptr<HeldFolder> hold(const FolderURL &folder, const QByteArray &) override
    {
        return std::make_unique<HeldFolder>(folder);
    }

    bool found = true;
};

// A folder in memory: what was asked for, in order, and what refuses.
class FakeFolder : public FolderContents, public Trash
{
public:
    std::vector<FolderEntry> contentsOfDirectory(const FolderURL &folder, Error *) override
    {
        listed.append(folder.nativePath());
        return entries;
    }
    bool removeItem(const FileURL &atURL, Error *) override { return take(deleted, atURL); }
    bool moveItem(const FileURL &, const FileURL &, Error *) override { return false; } // the clean-up never moves
    bool trashItem(const FileURL &atURL, Error *, FileURL *) override { return take(trashed, atURL); }
    bool putBack(const FileURL &, const FileURL &, Error *) override { return false; }

    void add(const char *name, FileTime made) { entries.push_back({name, made}); }

    std::vector<FolderEntry> entries;
    QByteArrayList listed, deleted, trashed, refused;

private:
    bool take(QByteArrayList &into, const FileURL &url)
    {
        into.append(url.nativePath());
        return !refused.contains(url.nativePath());
    }
};

} // namespace

Q_DECLARE_METATYPE(std::chrono::nanoseconds)

class TestOldRecordings : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
    FakeBookmarkStore m_store;
    FakeFolder m_folder;

    void cleanUp(qint64 choice)
    {
        FolderBookmarks folders(*m_defaults, m_store);
        OldRecordings(folders, *m_defaults, m_folder, m_folder).deleteOldFilesChoice(choice, present);
    }

private Q_SLOTS:
    void init()
    {
        QFile::remove(m_dir.filePath(u"settings.ini"_qs));
        m_defaults = std::make_unique<UserDefaults>(m_dir.filePath(u"settings.ini"_qs));
        m_defaults->registerDefaults({{SettingsKeys::bTrashNotDelete, true},
                                      {SettingsKeys::dAudioRecordingFolder, QByteArray("bookmark")}});
        m_store = FakeBookmarkStore();
        m_folder = FakeFolder();
    }

    void cutOff_data()
    {
        QTest::addColumn<qint64>("choice");
        QTest::addColumn<std::chrono::nanoseconds>("offset");
        const auto row = [](const char *name, qint64 choice, std::chrono::nanoseconds offset) {
            QTest::newRow(name) << choice << offset;
        };
        row("a day", 1, -86400s);
        row("seven days", 2, -604800s);
        row("thirty days", 3, -2592000s);
        row("four: all", 4, 1s);
        row("negative: all", -1, 1s);
        row("zero is no special case here", 0, 1s);
        row("beyond 32 bits: all", (1LL << 32) + 1, 1s);
        row("largest: all", std::numeric_limits<qint64>::max(), 1s);
    }

    void cutOff()
    {
        QFETCH(qint64, choice);
        QFETCH(std::chrono::nanoseconds, offset);
        QVERIFY(cutOffForOldRecordings(choice, present) == present + offset);
    }

    void onlyStrictlyEarlierIsOld()
    {
        QVERIFY(isOldRecording({"a.m4a", present - 1ns}, present));
        QVERIFY(!isOldRecording({"a.m4a", present}, present));
        QVERIFY(!isOldRecording({"a.m4a", present + 1ns}, present));
    }

    void anEntryWithoutACreationDateIsNeverOld()
    {
        QVERIFY(!isOldRecording({"a.m4a", {}}, present));
        QVERIFY(!isOldRecording({"a.m4a", {}}, cutOffForOldRecordings(4, present)));
    }

    void onlyTheExtensionM4aCounts_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<bool>("counts");
        const auto row = [](const char *name, bool counts) { QTest::newRow(name) << QByteArray(name) << counts; };
        row("2024-03-05_14-07-09.m4a", true);
        row("note.txt", false);
        row("old.M4A", false);
        row("old.m4A", false);
        row(".x.m4a", false);
        row(".m4a", false);
        row("m4a", false);
        row("x.m4a.part", false);
        row("x.m4ab", false);
        row("x.m4a ", false);
        row("x.txt.m4a", true);
        row("x..m4a", true);
        row("x y:z%.m4a", true);
        row("caf\xe9.m4a", true);
        row("\xc3\xa9.m4a", true);
        row("x.m4a\n", false);
    }

    void onlyTheExtensionM4aCounts()
    {
        QFETCH(QByteArray, name);
        QTEST(isOldRecording({name, present - 1h}, present), "counts");
    }

    void choiceOneTakesOnlyTheRecordingOfTwoDaysAgo()
    {
        m_folder.add("two days.m4a", present - 48h);
        m_folder.add("two hours.m4a", present - 2h);
        cleanUp(1);
        QCOMPARE(m_folder.listed, QByteArrayList {"/r"});
        QCOMPARE(m_folder.trashed, QByteArrayList {"/r/two days.m4a"});
        QVERIFY(m_folder.deleted.isEmpty());
    }

    void anyOtherChoiceTakesTheRecordingOfAMomentAgoToo_data()
    {
        QTest::addColumn<int>("choice");
        QTest::newRow("4") << 4;
        QTest::newRow("-1") << -1;
    }

    void anyOtherChoiceTakesTheRecordingOfAMomentAgoToo()
    {
        QFETCH(int, choice);
        m_folder.add("old.m4a", present - 1000h);
        m_folder.add("new.m4a", present);
        m_folder.add("note.txt", present - 1000h);
        cleanUp(choice);
        QCOMPARE(m_folder.trashed, (QByteArrayList {"/r/old.m4a", "/r/new.m4a"}));
    }

    void deletesWhenTheTrashIsNotWanted()
    {
        m_defaults->setBool(false, SettingsKeys::bTrashNotDelete);
        m_folder.add("old.m4a", present - 1000h);
        cleanUp(3);
        QCOMPARE(m_folder.deleted, QByteArrayList {"/r/old.m4a"});
        QVERIFY(m_folder.trashed.isEmpty());
    }

    void oneThatCannotBeRemovedDoesNotKeepTheOthers()
    {
        for (const char *name : {"a.m4a", "b.m4a", "c.m4a"})
            m_folder.add(name, present - 1000h);
        m_folder.refused = {"/r/a.m4a", "/r/b.m4a"};
        cleanUp(1);
        QCOMPARE(m_folder.trashed, (QByteArrayList {"/r/a.m4a", "/r/b.m4a", "/r/c.m4a"}));
        QVERIFY(m_folder.deleted.isEmpty()); // what the trash refuses is not deleted instead
    }

    void aFolderThatIsNotFoundIsLoggedAndNothingHappens()
    {
        m_store.found = false;
        m_folder.add("old.m4a", present - 1000h);
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"^Could not delete old recordings: .*KestErrorDomain.*11001.*could not "
                                                "be retrieved"_qs));
        cleanUp(4);
        QVERIFY(m_folder.listed.isEmpty() && m_folder.trashed.isEmpty() && m_folder.deleted.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestOldRecordings)
#include "tst_oldrecordings.moc"
