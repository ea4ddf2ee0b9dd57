#include "TrashScene.h"
#include "app/FolderBookmarks.h"
#include "app/OldRecordings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "platform/linux/desktop/PosixFolderContents.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <cstdio>
#include <fcntl.h>
#include <functional>

using namespace kest;
using namespace kest::testing;
using namespace std::chrono_literals;

namespace {

// The real ones, interrupted at one moment of the clean-up.

class InterruptedBookmarks : public LinuxBookmarkStore
{
public:
    std::optional<Resolved> resolveBookmarkData(const QByteArray &data, Error *error) override
    {
        auto resolved = LinuxBookmarkStore::resolveBookmarkData(data, error);
        if (afterwards)
            afterwards();
        return resolved;
    }
    std::function<void()> afterwards;
};

class InterruptedContents : public PosixFolderContents
{
public:
    std::vector<FolderEntry> contentsOfDirectory(const FolderURL &folder, Error *error) override
    {
        auto entries = PosixFolderContents::contentsOfDirectory(folder, error);
        if (afterwards)
            afterwards();
        return entries;
    }
    std::function<void()> afterwards;
};

} // namespace

// Another folder takes the place of the recordings folder while that is cleared.
class TestOldRecordingsSwapped : public QObject
{
    Q_OBJECT

    std::unique_ptr<TrashScene> m_s;
    std::unique_ptr<UserDefaults> m_defaults;
    InterruptedBookmarks m_bookmarks;
    InterruptedContents m_contents;
    QByteArray m_album, m_moved;

    void cleanUp()
    {
        FolderBookmarks folders(*m_defaults, m_bookmarks);
        OldRecordings(folders, *m_defaults, m_contents, m_s->subject)
            .deleteOldFilesChoice(1, FileTime(std::chrono::system_clock::now()) + 48h);
    }

    /// A link to the album stands where the recordings were.
    void swap()
    {
        QCOMPARE(std::rename(m_s->folder.constData(), m_moved.constData()), 0);
        QCOMPARE(::symlink(m_album.constData(), m_s->folder.constData()), 0);
    }

private Q_SLOTS:
    void init()
    {
        m_s = std::make_unique<TrashScene>();
        m_album = m_s->root + "/Album";
        m_moved = m_s->root + "/elsewhere";
        QVERIFY(QDir().mkpath(QFile::decodeName(m_album)));
        QVERIFY(write(m_album + "/a.m4a", "precious") && write(m_s->folder + "/a.m4a", "spoken"));
        m_bookmarks.afterwards = m_contents.afterwards = {};
        m_defaults = std::make_unique<UserDefaults>(QFile::decodeName(m_s->root + "/settings.ini"));
        const auto bookmark = m_bookmarks.bookmarkData(FolderURL::fromNativePath(m_s->folder), nullptr);
        QVERIFY(bookmark);
        m_defaults->registerDefaults({{SettingsKeys::dAudioRecordingFolder, *bookmark}});
    }

    void inTheTrash_data()
    {
        QTest::addColumn<bool>("trashNotDelete");
        QTest::newRow("trash") << true;
        QTest::newRow("delete") << false;
    }

    void afterItWasListedItIsStillTheOneThatIsCleared_data() { inTheTrash_data(); }

    void afterItWasListedItIsStillTheOneThatIsCleared()
    {
        QFETCH(bool, trashNotDelete);
        m_defaults->setBool(trashNotDelete, SettingsKeys::bTrashNotDelete);
        m_contents.afterwards = [this] { swap(); };
        cleanUp();
        QCOMPARE(read(m_album + "/a.m4a"), QByteArray("precious"));
        QVERIFY(!there(m_moved + "/a.m4a"));
        if (trashNotDelete) {
            QCOMPARE(read(m_s->trash + "/files/a.m4a"), QByteArray("spoken"));
            QVERIFY(read(m_s->trash + "/info/a.m4a.trashinfo").contains("\nPath=" + m_moved + "/a.m4a\n"));
        }
    }

    void afterItWasFoundNothingIsCleared_data() { inTheTrash_data(); }

    void afterItWasFoundNothingIsCleared()
    {
        QFETCH(bool, trashNotDelete);
        m_defaults->setBool(trashNotDelete, SettingsKeys::bTrashNotDelete);
        m_bookmarks.afterwards = [this] { swap(); };
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Could not delete old recordings: .*"_qs));
        cleanUp();
        QCOMPARE(read(m_album + "/a.m4a"), QByteArray("precious"));
        QCOMPARE(read(m_moved + "/a.m4a"), QByteArray("spoken"));
    }

    void aFolderThatWasRemovedClearsNothing()
    {
        m_contents.afterwards = [this] {
            QVERIFY(QFile::remove(QFile::decodeName(m_s->folder + "/a.m4a")));
            QVERIFY(QDir().rmdir(QFile::decodeName(m_s->folder)));
            QVERIFY(QFile::rename(QFile::decodeName(m_album), QFile::decodeName(m_s->folder)));
        };
        cleanUp();
        QCOMPARE(read(m_s->folder + "/a.m4a"), QByteArray("precious"));
        QVERIFY(!there(m_s->trash));
    }
};

QTEST_GUILESS_MAIN(TestOldRecordingsSwapped)
#include "tst_oldrecordings_swapped.moc"
