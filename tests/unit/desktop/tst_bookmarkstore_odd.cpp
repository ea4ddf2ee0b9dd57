#include "support/PrivateMounts.h"
#include "unit/desktop/BookmarkScene.h"

#include <sys/wait.h>

using namespace kest;
using kest::testing::SmallFileSystem;

class TestBookmarkStoreOddities : public kest::testing::BookmarkScene
{
    Q_OBJECT

private Q_SLOTS:
    void aFolderBelowAnUnreadableParentIsNotFoundAndSaysWhy()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        QVERIFY(::chmod(m_dir->path().toUtf8().constData(), 0755) == 0);
        QCOMPARE(::chmod(path("Music").constData(), 0), 0);
        // As somebody whom permissions bind: root reads everything.
        const pid_t child = ::fork();
        if (child == 0) {
            if (!kest::testing::dropCapabilities())
                ::_exit(2);
            Error error;
            const bool found = LinuxBookmarkStore().resolveBookmarkData(data, &error).has_value();
            ::_exit(!found && error.code == EACCES ? 0 : 1);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QCOMPARE(::chmod(path("Music").constData(), 0755), 0);
        QCOMPARE(WEXITSTATUS(status), 0);
    }

    void aSymbolicLinkResolvesAsItself()
    {
        make("disk/Recordings");
        QCOMPARE(::symlink(path("disk/Recordings").constData(), path("Music/Link").constData()), 0);
        verifyResolves(bookmarkOf("Music/Link"), path("Music/Link"), false);
    }

    void aSymbolicLinksTargetThatMovedIsFoundNearWhereItLay()
    {
        make("disk/a/Recordings");
        make("disk/b");
        QCOMPARE(::symlink(path("disk/a/Recordings").constData(), path("Music/Link").constData()), 0);
        const QByteArray data = bookmarkOf("Music/Link");
        move("disk/a/Recordings", "disk/b/Recordings");
        verifyMovedTo(data, path("disk/b/Recordings"));
    }

    void theSearchFollowsNoSymbolicLink()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make(".hidden/away");
        move("Music/Kest", ".hidden/away/Kest");
        QCOMPARE(::symlink(path(".hidden/away").constData(), path("Music/link").constData()), 0);
        QCOMPARE(::symlink(path("Music").constData(), path("Music/circle").constData()), 0);
        verifyNotFound(data, ENOENT);
    }

    void anotherPersonsFolderTakesNoFoldersPlace()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make("Music/Other"); // while the first is there, so that it gets another inode
        giveAway("Music/Other");
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        move("Music/Other", "Music/Kest");
        verifyNotFound(data, EPERM);
    }

    void anotherPersonsLinkTakesNoFoldersPlace_data()
    {
        QTest::addColumn<QByteArray>("link");
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("of the folder") << QByteArray("Music/Kest") << QByteArray("disk/Kest");
        QTest::newRow("of a folder above") << QByteArray("Music") << QByteArray("disk");
    }
    void anotherPersonsLinkTakesNoFoldersPlace()
    {
        QFETCH(QByteArray, link);
        QFETCH(QByteArray, target);
        const QByteArray data = bookmarkOf("Music/Kest");
        make("disk/Kest");
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        ::rmdir(path(link).constData());
        QCOMPARE(::symlink(path(target).constData(), path(link).constData()), 0);
        giveAway(link);
        verifyNotFound(data, EPERM);
        QCOMPARE(::lchown(path(link).constData(), ::geteuid(), ::getegid()), 0);
        QVERIFY(m_store.resolveBookmarkData(data, nullptr));
    }

    void aPathThatIsNotUtf8IsFoundAndFollowed()
    {
        make("Music/caf\xe9 \xff");
        const QByteArray data = bookmarkOf("Music/caf\xe9 \xff");
        verifyResolves(data, path("Music/caf\xe9 \xff"), false);
        move("Music/caf\xe9 \xff", "Music/th\xe9");
        verifyMovedTo(data, path("Music/th\xe9"));
        QCOMPARE(::rmdir(path("Music/th\xe9").constData()), 0);
    }

    void noBookmarkOfWhatIsNoFolder()
    {
        Error error;
        QVERIFY(!m_store.bookmarkData(url(path("Music/None")), &error));
        QCOMPARE(error.code, ENOENT);
        QFile file(QString::fromUtf8(path("Music/file")));
        QVERIFY(file.open(QFile::WriteOnly));
        file.close();
        QVERIFY(!m_store.bookmarkData(url(path("Music/file")), &error));
        QCOMPARE(error.code, ENOTDIR);
        QVERIFY(!m_store.bookmarkData(FolderURL(), nullptr));
    }

    void bytesThatAreNoBookmarkAreNotFound_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("a path") << QByteArray("/tmp");
        QTest::newRow("zeros") << QByteArray(200, '\0');
        QTest::newRow("a huge length") << QByteArray("\x7f\xff\xff\xff") + "KBM1";
        QTest::newRow("cut off") << bookmarkOf("Music/Kest").chopped(9);
    }

    void bytesThatAreNoBookmarkAreNotFound()
    {
        QFETCH(QByteArray, data);
        verifyNotFound(data, EINVAL);
    }

    void theSearchStaysWithinItsBounds()
    {
        const QByteArray data = bookmarkOf("Music/Kest");
        make("Documents/deep");
        move("Music/Kest", "Documents/deep/Kest");
        for (int i = 0; i < 40; ++i)
            make("Documents/a" + QByteArray::number(i));
        QVERIFY(!LinuxBookmarkStore({ .entries = 20 }).resolveBookmarkData(data, nullptr));
        QVERIFY(!LinuxBookmarkStore({ .time = std::chrono::milliseconds(0) }).resolveBookmarkData(data, nullptr));
        verifyMovedTo(data, path("Documents/deep/Kest"));
    }

    void aLargeHomeCostsLessThanASecond()
    {
        SmallFileSystem large(path("Music"), "size=512m");
        make("Music/Kest");
        const QByteArray data = bookmarkOf("Music/Kest");
        for (int i = 0; i < 300; ++i) {
            make("Music/a" + QByteArray::number(i));
            for (int j = 0; j < 400; ++j)
                ::mkdir(path("Music/a" + QByteArray::number(i) + '/' + QByteArray::number(j)).constData(), 0755);
        }
        QCOMPARE(::rmdir(path("Music/Kest").constData()), 0);
        verifyNotFound(data, ENOENT);
    }

private:
    void giveAway(const QByteArray &name)
    {
        constexpr uid_t somebodyElse = 65534;
        QVERIFY2(::lchown(path(name).constData(), somebodyElse, somebodyElse) == 0, "only root can give a folder away");
    }
};

int main(int argc, char **argv)
{
    kest::testing::requirePrivateMounts();
    QCoreApplication app(argc, argv);
    TestBookmarkStoreOddities test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_bookmarkstore_odd.moc"
