#include "support/PrivateMounts.h"
#include "unit/desktop/BookmarkScene.h"

#include <QProcess>

using namespace kest;
using kest::testing::SmallFileSystem;

class TestBookmarkStore : public kest::testing::BookmarkScene
{
    Q_OBJECT

private Q_SLOTS:
    void aFolderInItsPlaceIsFoundAndFresh()
    {
        verifyResolves(bookmarkOf("Music/Kest"), path("Music/Kest"), false);
    }

    void aFolderWhoseContentsChangedIsFresh()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make("Music/Kest/inside");
        QCOMPARE(::chmod(path("Music/Kest").constData(), 0700), 0);
        verifyResolves(data, path("Music/Kest"), false);
    }

    void aFolderWithANewNameIsFoundStale()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        move("Music/Kest", "Music/Voice messages");
        verifyMovedTo(data, path("Music/Voice messages"));
    }

    void aFolderMovedIntoASiblingIsFoundStale()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make("Music/Other");
        move("Music/Kest", "Music/Other/Kest");
        verifyMovedTo(data, path("Music/Other/Kest"));
    }

    void aFolderMovedTwoLevelsAwayIsFoundStale()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make("Documents/Mail");
        move("Music/Kest", "Documents/Mail/Kest");
        verifyMovedTo(data, path("Documents/Mail/Kest"));
    }

    void aFolderOutsideTheHomeFolderMovedIntoItIsFoundStale()
    {
        QTemporaryDir outside;
        const QByteArray old = outside.path().toUtf8() + "/Kest";
        QCOMPARE(::mkdir(old.constData(), 0755), 0);
        const auto data = m_store.bookmarkData(url(old), nullptr);
        make("Documents");
        QCOMPARE(::rename(old.constData(), path("Documents/Kest").constData()), 0);
        verifyMovedTo(*data, path("Documents/Kest"));
    }

    void aFolderWhoseParentGotANewNameIsFoundStale()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        move("Music", "Musik");
        verifyMovedTo(data, path("Musik/Kest"));
    }

    void aMovedFolderIsFoundAlsoWhenAnotherTookItsPlace()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        move("Music/Kest", "Music/Old Kest");
        make("Music/Kest");
        verifyMovedTo(data, path("Music/Old Kest"));
    }

    void aFolderMovedToAnotherFileSystemIsNotFound()
    {
        make("stick");
        SmallFileSystem stick(path("stick"), "size=64k");
        QVERIFY(stick.isMounted());
        const QByteArray data = bookmarkOf("Music/Kest");
        QProcess mv;
        mv.start(QStringLiteral("mv"), { QString::fromUtf8(path("Music/Kest")), QString::fromUtf8(path("stick/")) });
        QVERIFY(mv.waitForFinished());
        QVERIFY(QFile::exists(QString::fromUtf8(path("stick/Kest"))));
        verifyNotFound(data, ENOENT);
    }

    void aFolderOnAnotherFileSystemThatIsTakenOutIsNotFound()
    {
        make("stick");
        QByteArray data;
        {
            SmallFileSystem stick(path("stick"), "size=64k");
            make("stick/Kest");
            data = bookmarkOf("stick/Kest");
        }
        verifyNotFound(data, ENOENT);
    }

    void aDeletedFolderIsNotFound()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        verifyNotFound(data, ENOENT);
    }

    void aFolderInTheTrashIsNotFound()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make(".local/share/Trash/files");
        move("Music/Kest", ".local/share/Trash/files/Kest");
        verifyNotFound(data, ENOENT);
    }

    void aFolderDeletedAndMadeAnewAtTheSamePathIsFoundStale()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        waitForNextTick();
        make("Music/Kest"); // most file systems give it the same inode number again
        verifyMovedTo(data, path("Music/Kest"));
    }

    void aFileInTheFoldersPlaceIsNotFound()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        QFile file(QString::fromUtf8(path("Music/Kest")));
        QVERIFY(file.open(QFile::WriteOnly));
        verifyNotFound(data, ENOTDIR);
    }
};

int main(int argc, char **argv)
{
    kest::testing::requirePrivateMounts();
    QCoreApplication app(argc, argv);
    TestBookmarkStore test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_bookmarkstore.moc"
