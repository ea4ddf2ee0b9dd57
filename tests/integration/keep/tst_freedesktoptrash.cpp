#include "TrashScene.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>

#include <cstdio>

using namespace kest;
using namespace kest::testing;

class TestFreedesktopTrash : public QObject
{
    Q_OBJECT

    std::unique_ptr<TrashScene> m_s;

private Q_SLOTS:
    void init() { m_s = std::make_unique<TrashScene>(); }

    void movesIntoTheTrashWhereTheDataHomeDoesNotExistYet()
    {
        QVERIFY(write(m_s->folder + "/a.m4a", "sound"));
        QVERIFY(!there(m_s->data));
        QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        QVERIFY(!there(m_s->folder + "/a.m4a"));
        QCOMPARE(read(m_s->trash + "/files/a.m4a"), QByteArray("sound"));
        QVERIFY(!there(m_s->root + "/files")); // the working folder is no trash
        QCOMPARE(modeOf(m_s->trash), mode_t(0700));
        QCOMPARE(m_s->error, Error());
    }

    void theNoteTellsWhereItCameFromAndWhen()
    {
        QVERIFY(write(m_s->folder + "/a b%.m4a", "sound"));
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        QVERIFY(m_s->trashItem(m_s->folder + "/a b%.m4a"));
        QVERIFY(read(m_s->trash + "/info/a b%.m4a.trashinfo").startsWith("[Trash Info]\n"));
        QCOMPARE(originalPath(m_s->trash, "a b%.m4a"), m_s->folder + "/a b%.m4a");
        QVERIFY(noteLine(m_s->trash, "a b%.m4a", "Path").endsWith("/Music/Kest/a%20b%25.m4a"));
        const auto when = QDateTime::fromString(QString::fromLatin1(noteLine(m_s->trash, "a b%.m4a", "DeletionDate")),
                                                Qt::ISODate);
        QVERIFY(when >= before && when <= QDateTime::currentDateTime());
    }

    void whatTheNoteSaysPutsItBack()
    {
        QVERIFY(write(m_s->folder + "/a.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        QCOMPARE(std::rename((m_s->trash + "/files/a.m4a").constData(), originalPath(m_s->trash, "a.m4a").constData()), 0);
        QCOMPARE(read(m_s->folder + "/a.m4a"), QByteArray("sound"));
    }

    void whatWasTrashedIsPutBackUnderItsVeryName()
    {
        const QByteArray path = m_s->folder + "/a b%.m4a";
        FileURL inTrash;
        for (const char *content : {"one", "two"}) { // the second lies there under another name
            QVERIFY(write(path, content));
            QVERIFY(m_s->subject.trashItem(FileURL::fromNativePath(path), &m_s->error, &inTrash));
        }
        QCOMPARE(inTrash.nativePath(), m_s->trash + "/files/a b%.2.m4a");
        QVERIFY(m_s->subject.putBack(inTrash, FileURL::fromNativePath(path), &m_s->error));
        QCOMPARE(read(path), QByteArray("two"));
        QVERIFY(!there(m_s->trash + "/files/a b%.2.m4a"));
        QVERIFY(!there(m_s->trash + "/info/a b%.2.m4a.trashinfo"));
        QVERIFY(there(m_s->trash + "/info/a b%.m4a.trashinfo"));
    }

    void puttingBackReplacesNothing()
    {
        const FileURL file = FileURL::fromNativePath(m_s->folder + "/a.m4a");
        FileURL inTrash;
        QVERIFY(write(file.nativePath(), "mine"));
        QVERIFY(m_s->subject.trashItem(file, nullptr, &inTrash));
        QVERIFY(write(file.nativePath(), "other"));
        QVERIFY(!m_s->subject.putBack(inTrash, file, &m_s->error));
        QVERIFY(!m_s->error.description.isEmpty());
        QCOMPARE(read(file.nativePath()), QByteArray("other"));
        QCOMPARE(read(inTrash.nativePath()), QByteArray("mine"));
        QVERIFY(there(m_s->trash + "/info/a.m4a.trashinfo"));
    }

    void whatIsNotInTheTrashAnyMoreCannotBePutBack()
    {
        const FileURL file = FileURL::fromNativePath(m_s->folder + "/a.m4a");
        FileURL inTrash;
        QVERIFY(write(file.nativePath(), "mine"));
        QVERIFY(m_s->subject.trashItem(file, nullptr, &inTrash));
        QVERIFY(QFile::remove(inTrash.path()));
        QVERIFY(!m_s->subject.putBack(inTrash, file, nullptr));
        QVERIFY(!there(file.nativePath()));
    }

    void nothingInTheTrashIsReplaced()
    {
        for (const char *content : {"one", "two", "three"}) {
            QVERIFY(write(m_s->folder + "/a.m4a", content));
            QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        }
        QCOMPARE(read(m_s->trash + "/files/a.m4a"), QByteArray("one"));
        QCOMPARE(read(m_s->trash + "/files/a.2.m4a"), QByteArray("two"));
        QCOMPARE(read(m_s->trash + "/files/a.3.m4a"), QByteArray("three"));
        QCOMPARE(originalPath(m_s->trash, "a.3.m4a"), m_s->folder + "/a.m4a");
    }

    void aFileInTheTrashWithoutANoteIsNotReplacedEither()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->trash + "/files")));
        QVERIFY(write(m_s->trash + "/files/a.m4a", "another's"));
        QVERIFY(write(m_s->folder + "/a.m4a", "mine"));
        QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        QCOMPARE(read(m_s->trash + "/files/a.m4a"), QByteArray("another's"));
        QCOMPARE(read(m_s->trash + "/files/a.2.m4a"), QByteArray("mine"));
        QVERIFY(!there(m_s->trash + "/info/a.m4a.trashinfo"));
    }

    void aHundredOfTheSameNameAllFindAPlace()
    {
        for (int at = 0; at < 130; ++at) {
            QVERIFY(write(m_s->folder + "/a.m4a", QByteArray::number(at)));
            QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        }
        QCOMPARE(listed(m_s->trash + "/files").size(), 130);
        QCOMPARE(listed(m_s->trash + "/info").size(), 130);
    }

    void anyNameGoes_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("not UTF-8") << QByteArray("caf\xe9.m4a");
        QTest::newRow("UTF-8") << QByteArray("caf\xc3\xa9 \xf0\x9f\x8e\xa4.m4a");
        QTest::newRow("line feed") << QByteArray("a\nPath=b.m4a");
        QTest::newRow("percent, colon, tilde") << QByteArray("50%25: ~x.m4a");
        QTest::newRow("leading dash") << QByteArray("-rf.m4a");
        QTest::newRow("no extension") << QByteArray("x");
        QTest::newRow("246 bytes") << QByteArray(242, 'n') + ".m4a";
        QTest::newRow("255 bytes") << QByteArray(251, 'n') + ".m4a";
    }

    void anyNameGoes()
    {
        QFETCH(QByteArray, name);
        const QByteArray path = m_s->folder + '/' + name;
        QVERIFY(write(path, "sound"));
        QVERIFY(m_s->trashItem(path));
        QVERIFY(!there(path));
        const QByteArray as = name.size() > 245 ? name.left(241) + ".m4a" : name;
        QCOMPARE(read(m_s->trash + "/files/" + as), QByteArray("sound"));
        QCOMPARE(originalPath(m_s->trash, as), path);
    }

    void aLongNameIsNotCutInsideACharacter()
    {
        const QByteArray name = 'n' + QByteArray("\xc3\xa9").repeated(125) + ".m4a"; // 255 bytes
        QVERIFY(write(m_s->folder + '/' + name, "sound"));
        QVERIFY(m_s->trashItem(m_s->folder + '/' + name));
        const QByteArray as = 'n' + QByteArray("\xc3\xa9").repeated(120) + ".m4a";
        QCOMPARE(listed(m_s->trash + "/files"), QStringList {QString::fromUtf8(as)});
    }

    void aFolderGoesWithAllThatIsInIt()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(m_s->folder + "/f.m4a/deep")));
        QVERIFY(write(m_s->folder + "/f.m4a/deep/x", "inside"));
        QVERIFY(m_s->trashItem(m_s->folder + "/f.m4a"));
        QCOMPARE(read(m_s->trash + "/files/f.m4a/deep/x"), QByteArray("inside"));
    }

    void aLinkGoesAndItsTargetStays_data()
    {
        QTest::addColumn<bool>("broken");
        QTest::newRow("to a file") << false;
        QTest::newRow("broken") << true;
    }

    void aLinkGoesAndItsTargetStays()
    {
        QFETCH(bool, broken);
        const QByteArray target = m_s->root + "/precious.m4a";
        QVERIFY(broken || write(target, "precious"));
        QCOMPARE(::symlink(target.constData(), (m_s->folder + "/l.m4a").constData()), 0);
        QVERIFY(m_s->trashItem(m_s->folder + "/l.m4a"));
        QVERIFY(!there(m_s->folder + "/l.m4a"));
        QCOMPARE(QFile::symLinkTarget(QFile::decodeName(m_s->trash + "/files/l.m4a")), QFile::decodeName(target));
        QVERIFY(broken || read(target) == "precious");
    }

    void throughALinkedFolderTheNoteHoldsTheRealPath()
    {
        QCOMPARE(::symlink(m_s->folder.constData(), (m_s->root + "/short").constData()), 0);
        QVERIFY(write(m_s->folder + "/a.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->root + "/short/a.m4a"));
        QCOMPARE(originalPath(m_s->trash, "a.m4a"), m_s->folder + "/a.m4a");
    }

    void aLinkedTrashOfThePersonIsFollowed()
    {
        const QByteArray elsewhere = m_s->root + "/elsewhere";
        QVERIFY(QDir().mkpath(QFile::decodeName(elsewhere)) && QDir().mkpath(QFile::decodeName(m_s->data)));
        QCOMPARE(::symlink(elsewhere.constData(), m_s->trash.constData()), 0);
        QVERIFY(write(m_s->folder + "/a.m4a", "sound"));
        QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        QCOMPARE(read(elsewhere + "/files/a.m4a"), QByteArray("sound"));
    }

    void aTrashThatIsTakenAwayBetweenTwoCallsIsMadeAgain()
    {
        QVERIFY(write(m_s->folder + "/a.m4a", "one") && write(m_s->folder + "/b.m4a", "two"));
        QVERIFY(m_s->trashItem(m_s->folder + "/a.m4a"));
        std::filesystem::remove_all(m_s->trash.toStdString());
        QVERIFY(m_s->trashItem(m_s->folder + "/b.m4a"));
        QCOMPARE(listed(m_s->trash + "/files"), QStringList {u"b.m4a"_qs});
        QCOMPARE(originalPath(m_s->trash, "b.m4a"), m_s->folder + "/b.m4a");
    }

    void aRelativeDataHomeCountsAsNone()
    {
        const QByteArray oldHome = qgetenv("HOME");
        qputenv("HOME", m_s->root + "/home");
        qputenv("XDG_DATA_HOME", "relative");
        QVERIFY(write(m_s->folder + "/a.m4a", "sound"));
        const bool done = m_s->trashItem(m_s->folder + "/a.m4a");
        qputenv("HOME", oldHome);
        QVERIFY(done);
        QVERIFY(there(m_s->root + "/home/.local/share/Trash/files/a.m4a"));
        QVERIFY(!there(m_s->root + "/relative"));
    }

    void whatIsNotThereIsAnErrorAndLeavesNoNote()
    {
        QVERIFY(!m_s->trashItem(m_s->folder + "/gone.m4a"));
        QCOMPARE(m_s->error.code, ENOENT);
        QVERIFY(!there(m_s->trash + "/info/gone.m4a.trashinfo"));
    }

    void withoutAnErrorSlotAFailureIsJustFalse()
    {
        QVERIFY(!m_s->subject.trashItem(FileURL::fromNativePath(m_s->folder + "/gone.m4a"), nullptr));
        QVERIFY(!m_s->subject.trashItem(FileURL(), nullptr));
    }
};

QTEST_GUILESS_MAIN(TestFreedesktopTrash)
#include "tst_freedesktoptrash.moc"
