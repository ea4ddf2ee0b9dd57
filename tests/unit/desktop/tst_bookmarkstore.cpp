#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "support/PrivateMounts.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cstdio>
#include <ctime>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace kest;
using kest::testing::SmallFileSystem;

// Every case has a home of its own, with the folder Music/Kest and a file in it.
class TestBookmarkStore : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    LinuxBookmarkStore m_store;

    QByteArray path(const QByteArray &below) const { return m_dir->path().toUtf8() + '/' + below; }

    static FolderURL url(const QByteArray &native) { return FolderURL::fromNativePath(native); }

    static qint64 coarseTime()
    {
        timespec time = {};
        ::clock_gettime(CLOCK_REALTIME_COARSE, &time);
        return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
    }

    void make(const QByteArray &below)
    {
        const QByteArray all = path(below);
        for (auto at = all.indexOf('/', 1); at > 0; at = all.indexOf('/', at + 1))
            ::mkdir(all.left(at).constData(), 0755);
        QVERIFY(::mkdir(all.constData(), 0755) == 0 || errno == EEXIST);
    }

    void move(const QByteArray &from, const QByteArray &to)
    {
        QCOMPARE(::rename(path(from).constData(), path(to).constData()), 0);
    }

    QByteArray bookmarkOf(const QByteArray &below)
    {
        Error error;
        const auto data = m_store.bookmarkData(url(path(below)), &error);
        if (!data)
            qWarning("%s", qPrintable(error.description));
        return data.value_or(QByteArray());
    }

    void verifyResolves(const QByteArray &data, const QByteArray &native, bool stale)
    {
        Error error;
        QElapsedTimer timer;
        timer.start();
        const auto resolved = m_store.resolveBookmarkData(data, &error);
        QVERIFY(timer.elapsed() < 1000);
        QVERIFY2(resolved, qPrintable(error.description));
        QCOMPARE(resolved->folder.nativePath(), native);
        QCOMPARE(resolved->isStale, stale);
        QVERIFY(error.description.isEmpty());
    }

    void verifyNotFound(const QByteArray &data, int code)
    {
        Error error;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_store.resolveBookmarkData(data, &error));
        QVERIFY(timer.elapsed() < 1000);
        QCOMPARE(error.domain, posixErrorDomain);
        QCOMPARE(error.code, code);
    }

    // Stale once: the bookmark that is made again is fresh.
    void verifyMovedTo(const QByteArray &data, const QByteArray &native)
    {
        verifyResolves(data, native, true);
        const auto again = m_store.bookmarkData(url(native), nullptr);
        QVERIFY(again);
        verifyResolves(*again, native, false);
    }

private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        make("Music/Kest");
        qputenv("HOME", m_dir->path().toUtf8());
    }

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
        const auto tick = coarseTime(); // birth times are no finer than that
        QTRY_VERIFY(coarseTime() != tick);
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
};

int main(int argc, char **argv)
{
    if (!kest::testing::enterPrivateMounts())
        qFatal("This machine lets no process have mounts of its own");
    QCoreApplication app(argc, argv);
    TestBookmarkStore test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_bookmarkstore.moc"
