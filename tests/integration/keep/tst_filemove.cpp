#include "platform/linux/desktop/PosixFolderContents.h"

#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

using namespace kest;

namespace {

/// From now on the calling thread's kernel knows no renameat2 with flags, as on
/// some network file systems: it fails with `reason`.
void forgetRenameWithFlags(unsigned reason)
{
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | reason),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(steps), steps};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        qFatal("the filter was refused: %d", errno);
}

} // namespace

/// Moving a file on a real disk.
class TestFileMove : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    PosixFolderContents m_subject;
    Error m_error;

    FileURL at(const QByteArray &name) const { return FileURL::fromNativePath(m_dir->path().toUtf8() + '/' + name); }

    void write(const QByteArray &name, const QByteArray &content)
    {
        QFile file(at(name).path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QByteArray read(const QByteArray &name)
    {
        QFile file(at(name).path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing there");
    }

    QStringList names() const { return QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    bool move(const QByteArray &from, const QByteArray &to) { return m_subject.moveItem(at(from), at(to), &m_error); }

private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_error = {};
        write("a.m4a", "spoken");
    }

    void aFileGetsItsNewName()
    {
        QVERIFY(move("a.m4a", "b.m4a"));
        QCOMPARE(read("b.m4a"), QByteArray("spoken"));
        QCOMPARE(names(), QStringList(QStringLiteral("b.m4a")));
    }

    void whatBearsTheNameAlreadyIsNeverReplaced()
    {
        write("b.m4a", "earlier");
        QVERIFY(!move("a.m4a", "b.m4a"));
        QCOMPARE(read("a.m4a"), QByteArray("spoken"));
        QCOMPARE(read("b.m4a"), QByteArray("earlier"));
        QCOMPARE(m_error.code, EEXIST);
        QVERIFY(m_error.description.contains(QStringLiteral("a.m4a")));
    }

    void aDanglingLinkIsNotReplacedEither()
    {
        QCOMPARE(::symlink("/nowhere", at("b.m4a").nativePath().constData()), 0);
        QVERIFY(!move("a.m4a", "b.m4a"));
        QCOMPARE(names().size(), 1); // the link to nothing is not listed
        QCOMPARE(read("a.m4a"), QByteArray("spoken"));
    }

    void theSameNameIsNoMove()
    {
        QVERIFY(!move("a.m4a", "a.m4a"));
        QCOMPARE(read("a.m4a"), QByteArray("spoken"));
    }

    void aSecondNameOfTheSameFileIsNoMove()
    {
        QCOMPARE(::link(at("a.m4a").nativePath().constData(), at("b.m4a").nativePath().constData()), 0);
        QVERIFY(!move("a.m4a", "b.m4a"));
        QCOMPARE(names().size(), 2);
    }

    void impossibleNames_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("a folder that does not exist") << QByteArray("b/c.m4a");
        QTest::newRow("too long") << QByteArray(300, 'x') + ".m4a";
        QTest::newRow("a NUL within") << QByteArray("b\0c.m4a", 7);
    }

    void impossibleNames()
    {
        QFETCH(QByteArray, name);
        QVERIFY(!move("a.m4a", name));
        QVERIFY(m_error.code != 0);
        QCOMPARE(names(), QStringList(QStringLiteral("a.m4a")));
    }

    void aFileThatIsNotThereIsSaid()
    {
        QVERIFY(!move("gone.m4a", "b.m4a"));
        QCOMPARE(m_error.code, ENOENT);
        QVERIFY(!m_subject.moveItem(at("gone.m4a"), at("b.m4a"), nullptr));
    }

    void withoutTheKernelsPromiseNothingIsReplacedEither_data()
    {
        QTest::addColumn<unsigned>("reason");
        QTest::newRow("the file system cannot") << unsigned(EINVAL);
        QTest::newRow("the kernel cannot") << unsigned(ENOSYS);
    }

    void withoutTheKernelsPromiseNothingIsReplacedEither()
    {
        QFETCH(unsigned, reason);
        write("taken.m4a", "earlier");
        bool replaced = true;
        bool moved = false;
        std::thread([&] {
            forgetRenameWithFlags(reason);
            replaced = move("a.m4a", "taken.m4a");
            moved = move("a.m4a", "b.m4a");
        }).join();
        QVERIFY(!replaced);
        QVERIFY(moved);
        QCOMPARE(read("taken.m4a"), QByteArray("earlier"));
        QCOMPARE(read("b.m4a"), QByteArray("spoken"));
        QCOMPARE(names().size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestFileMove)
#include "tst_filemove.moc"
