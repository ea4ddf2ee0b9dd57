#include "TrashScene.h"
#include "support/PrivateMounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace kest;
using namespace kest::testing;

class TestFreedesktopTrashMounts : public QObject
{
    Q_OBJECT

    std::unique_ptr<TrashScene> m_s;

private Q_SLOTS:
    void init() { m_s = std::make_unique<TrashScene>(); }

    void onAnotherFileSystemItGoesToTheTrashAtItsTop()
    {
        const SmallFileSystem other(m_s->other, "size=1m");
        QVERIFY(other.isMounted());
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->other + "/deep/Kest")));
        QVERIFY(write(m_s->other + "/deep/Kest/a b.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->other + "/deep/Kest/a b.m4a"));
        QCOMPARE(read(m_s->topTrash + "/files/a b.m4a"), QByteArray("sound"));
        QCOMPARE(noteLine(m_s->topTrash, "a b.m4a", "Path"), QByteArray("deep/Kest/a%20b.m4a"));
        QCOMPARE(modeOf(m_s->topTrash), mode_t(0700));
        QVERIFY(listed(m_s->trash + "/files").isEmpty());
        QVERIFY(listed(m_s->trash + "/info").isEmpty());
    }

    void inAFolderMountedASecondTimeItGoesToTheTrashAtItsTop()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->folder)));
        QCOMPARE(::mount(m_s->folder.constData(), m_s->other.constData(), nullptr, MS_BIND, nullptr), 0);
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        const bool done = m_s->trashItem(m_s->other + "/a.m4a");
        const QByteArray found = read(m_s->topTrash + "/files/a.m4a");
        ::umount2(m_s->other.constData(), MNT_DETACH);
        QVERIFY(done);
        QCOMPARE(found, QByteArray("sound"));
        QVERIFY(listed(m_s->trash + "/info").isEmpty());
    }

    void theAdministratorsTrashComesFirst()
    {
        const SmallFileSystem other(m_s->other, "size=1m");
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->other + "/.Trash")));
        QCOMPARE(::chmod((m_s->other + "/.Trash").constData(), 01777), 0);
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->other + "/a.m4a"));
        QCOMPARE(read(m_s->other + "/.Trash/" + QByteArray::number(::getuid()) + "/files/a.m4a"), QByteArray("sound"));
        QVERIFY(!there(m_s->topTrash));
    }

    void anAdministratorsTrashWithoutTheStickyBitIsNotUsed()
    {
        const SmallFileSystem other(m_s->other, "size=1m");
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->other + "/.Trash")));
        QCOMPARE(::chmod((m_s->other + "/.Trash").constData(), 0777), 0);
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->other + "/a.m4a"));
        QVERIFY(there(m_s->topTrash + "/files/a.m4a"));
        QVERIFY(listed(m_s->other + "/.Trash").isEmpty());
    }

    void aLinkInPlaceOfATrashIsNeverFollowed()
    {
        const SmallFileSystem other(m_s->other, "size=1m");
        const QByteArray trap = m_s->other + "/trap";
        QVERIFY(QDir().mkpath(QFile::decodeName(trap)));
        QCOMPARE(::chmod(trap.constData(), 01777), 0);
        QCOMPARE(::symlink("trap", (m_s->other + "/.Trash").constData()), 0);
        QCOMPARE(::symlink("trap", m_s->topTrash.constData()), 0);
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        QVERIFY(!m_s->trashItem(m_s->other + "/a.m4a"));
        QCOMPARE(read(m_s->other + "/a.m4a"), QByteArray("sound"));
        QVERIFY(listed(trap).isEmpty());
        QVERIFY(m_s->error.description.contains(u"could not be moved to the Trash"_qs));
    }

    void aTrashOfSomebodyElseIsNotUsed()
    {
        const SmallFileSystem other(m_s->other, "size=1m");
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->topTrash)));
        QVERIFY2(::chown(m_s->topTrash.constData(), 4711, 4711) == 0, "only root can give a folder away");
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        QVERIFY(!m_s->trashItem(m_s->other + "/a.m4a"));
        QVERIFY(there(m_s->other + "/a.m4a"));
        QCOMPARE(m_s->error.code, EPERM);
    }

    void onAReadOnlyFileSystemItStays()
    {
        SmallFileSystem other(m_s->other, "size=1m");
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        QVERIFY(other.makeReadOnly());
        QVERIFY(!m_s->trashItem(m_s->other + "/a.m4a"));
        QCOMPARE(read(m_s->other + "/a.m4a"), QByteArray("sound"));
        QCOMPARE(m_s->error.domain, posixErrorDomain);
        QCOMPARE(m_s->error.code, EROFS);
    }

    void withNoRoomForTheNoteItStaysAndNoNoteIsLeft()
    {
        const SmallFileSystem other(m_s->other, "size=64k");
        QVERIFY(write(m_s->other + "/first.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->other + "/first.m4a")); // makes the trash while there is room
        QVERIFY(write(m_s->other + "/a.m4a", "sound"));
        other.fill();
        QVERIFY(!m_s->trashItem(m_s->other + "/a.m4a"));
        QCOMPARE(read(m_s->other + "/a.m4a"), QByteArray("sound"));
        QCOMPARE(listed(m_s->topTrash + "/info"), QStringList {u"first.m4a.trashinfo"_qs});
        QCOMPARE(m_s->error.code, ENOSPC);
    }
};

int main(int argc, char **argv)
{
    requirePrivateMounts();
    QCoreApplication application(argc, argv);
    TestFreedesktopTrashMounts test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_freedesktoptrash_mounts.moc"
