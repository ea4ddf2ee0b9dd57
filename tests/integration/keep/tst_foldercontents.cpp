#include "FileProbes.h"
#include "platform/linux/desktop/PosixFolderContents.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

using namespace kest;
using namespace kest::testing;

class TestFolderContents : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    QByteArray m_folder;
    PosixFolderContents m_subject;
    Error m_error;

    QByteArrayList names()
    {
        QByteArrayList found;
        for (const FolderEntry &entry : m_subject.contentsOfDirectory(FileURL::fromNativePath(m_folder), &m_error))
            found.append(entry.nativeName);
        std::sort(found.begin(), found.end());
        return found;
    }

    std::optional<FileTime> dateOf(const QByteArray &folder, const QByteArray &name)
    {
        for (const FolderEntry &entry : m_subject.contentsOfDirectory(FileURL::fromNativePath(folder), nullptr)) {
            if (entry.nativeName == name)
                return entry.creationDate;
        }
        return {};
    }

    bool remove(const QByteArray &path) { return m_subject.removeItem(FileURL::fromNativePath(path), &m_error); }

private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_folder = QFile::encodeName(m_dir->path());
        m_error = {};
    }

    void listsEntriesOfEveryKindButNoHiddenOnes()
    {
        QVERIFY(write(m_folder + "/a.m4a", "x"));
        QVERIFY(write(m_folder + "/.b.m4a", "x"));
        QVERIFY(QDir().mkpath(QFile::decodeName(m_folder + "/c.m4a/inside")));
        QCOMPARE(::symlink("nowhere", (m_folder + "/d.m4a").constData()), 0);
        QCOMPARE(names(), (QByteArrayList {"a.m4a", "c.m4a", "d.m4a"}));
        QCOMPARE(m_error, Error());
    }

    void givesTheBirthTimeAndNotTheTimeOfChange()
    {
        const auto before = std::chrono::system_clock::now() - std::chrono::milliseconds(20); // the kernel's clock ticks
        QVERIFY(write(m_folder + "/a.m4a", "x"));
        const auto after = std::chrono::system_clock::now();
        const timespec old[2] = {{1'000'000, 0}, {1'000'000, 0}};
        QCOMPARE(::utimensat(AT_FDCWD, (m_folder + "/a.m4a").constData(), old, 0), 0);
        const auto date = dateOf(m_folder, "a.m4a");
        QVERIFY(date && *date >= before && *date <= after);
    }

    void aNewNameDoesNotChangeTheBirthTime()
    {
        QVERIFY(write(m_folder + "/a.m4a", "x"));
        const auto date = dateOf(m_folder, "a.m4a");
        QCOMPARE(::rename((m_folder + "/a.m4a").constData(), (m_folder + "/a_Jane.m4a").constData()), 0);
        QVERIFY(date && date == dateOf(m_folder, "a_Jane.m4a"));
    }

    void aLinksBirthTimeIsItsOwn()
    {
        QVERIFY(write(m_folder + "/target", "x"));
        const auto targetDate = dateOf(m_folder, "target");
        std::optional<FileTime> linkDate = targetDate;
        const auto linkIsLater = [&] {
            ::unlink((m_folder + "/l.m4a").constData());
            return ::symlink("target", (m_folder + "/l.m4a").constData()) == 0
                && (linkDate = dateOf(m_folder, "l.m4a")) > targetDate;
        };
        QTRY_VERIFY(linkIsLater());
    }

    void aFileSystemWithoutBirthTimesGivesNone()
    {
        const auto entries = m_subject.contentsOfDirectory(FileURL::fromNativePath("/proc/self"), nullptr);
        QVERIFY(!entries.empty());
        QVERIFY(std::none_of(entries.begin(), entries.end(), [](const auto &entry) { return !!entry.creationDate; }));
    }

    void aFolderThatCannotBeReadIsEmptyAndAnError()
    {
        QVERIFY(m_subject.contentsOfDirectory(FileURL::fromNativePath(m_folder + "/gone"), &m_error).empty());
        QCOMPARE(m_error.code, ENOENT);
        QVERIFY(m_subject.contentsOfDirectory(FileURL::fromNativePath(m_folder + "/gone"), nullptr).empty());
    }

    void deletesAFileOfAnyName()
    {
        QVERIFY(write(m_folder + "/caf\xe9.m4a", "x"));
        QVERIFY(remove(m_folder + "/caf\xe9.m4a"));
        QVERIFY(!there(m_folder + "/caf\xe9.m4a"));
    }

    void deletesAFolderWithAllThatIsInIt()
    {
        QVERIFY(QDir().mkpath(QFile::decodeName(m_folder + "/f.m4a/deep/.hidden")));
        QVERIFY(write(m_folder + "/f.m4a/deep/x", "x"));
        QVERIFY(remove(m_folder + "/f.m4a"));
        QVERIFY(!there(m_folder + "/f.m4a"));
    }

    void neverFollowsALinkOutOfTheFolder()
    {
        const QByteArray precious = m_folder + "/precious";
        QVERIFY(QDir().mkpath(QFile::decodeName(precious)) && write(precious + "/x", "x"));
        QVERIFY(QDir().mkpath(QFile::decodeName(m_folder + "/f.m4a")));
        QCOMPARE(::symlink("../precious", (m_folder + "/f.m4a/link").constData()), 0);
        QCOMPARE(::symlink("precious", (m_folder + "/l.m4a").constData()), 0);
        QVERIFY(remove(m_folder + "/f.m4a"));
        QVERIFY(remove(m_folder + "/l.m4a"));
        QVERIFY(!there(m_folder + "/l.m4a"));
        QCOMPARE(read(precious + "/x"), QByteArray("x"));
    }

    void whatIsNotThereIsAnError()
    {
        QVERIFY(!remove(m_folder + "/gone.m4a"));
        QCOMPARE(m_error.code, ENOENT);
        QVERIFY(!m_subject.removeItem(FileURL::fromNativePath(m_folder + "/gone.m4a"), nullptr));
    }
};

QTEST_GUILESS_MAIN(TestFolderContents)
#include "tst_foldercontents.moc"
