#include "ui/OptionalAttachmentsMenu.h"

#include "support/HangingFileSystem.h"
#include "support/PrivateMounts.h"
#include "ui/controls/PullDownMenu.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace kest;
using namespace kest::testing;
using namespace Qt::StringLiterals;

class TestOptionalAttachmentsMenu : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QWidget> m_button;
    std::unique_ptr<PullDownMenu> m_menu;
    std::unique_ptr<BoundedLookUps> m_lookUps;

    FolderURL url() const { return FileURL::fromPath(m_folder->path()); }
    QByteArray pathOf(const QByteArray &name) const { return url().appendingNativePathComponent(name).nativePath(); }

    void add(const QByteArray &name) const
    {
        // By its bytes: a QFile's name cannot be anything but UTF-8.
        const int file = ::creat(pathOf(name).constData(), 0600);
        QVERIFY2(file >= 0, name.constData());
        ::close(file);
    }

    int fill(const QString &chosen = {}) { return fillOptionalAttachmentsMenu(*m_menu, url(), chosen, *m_lookUps); }

    QStringList titles(bool checkedOnly = false) const
    {
        QStringList list;
        for (const PullDownItem &item : m_menu->items()) {
            if (item.checked || !checkedOnly)
                list.append(item.title);
        }
        return list;
    }
    QStringList sortedTitles() const
    {
        QStringList list = titles();
        list.sort();
        return list;
    }
    QStringList checked() const { return titles(true); }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_button = std::make_unique<QWidget>();
        m_menu = std::make_unique<PullDownMenu>(m_button.get());
        m_lookUps = std::make_unique<BoundedLookUps>(std::chrono::seconds(20));
    }

    void cleanup()
    {
        m_menu.reset();
        // QTemporaryDir cannot remove names that are not UTF-8.
        std::filesystem::remove_all(m_folder->path().toStdString());
    }

    void anEmptyFolderLeavesTheFixedItemOnly()
    {
        m_menu->setImage(QIcon());
        QCOMPARE(fill(), 0);
        QVERIFY(m_menu->items().isEmpty());
    }

    void listsVisibleRegularFilesOnly()
    {
        add(".hidden");
        add("a.txt");
        add("b.m4a");
        QVERIFY(QDir(m_folder->path()).mkdir(u"folder.txt"_s));
        fill();
        QCOMPARE(sortedTitles(), QStringList({u"a.txt"_s, u"b.m4a"_s}));
    }

    void linksAreNotListed_data()
    {
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("to a file") << QByteArray("a.txt");
        QTest::newRow("to a folder") << QByteArray("folder");
        QTest::newRow("broken") << QByteArray("nowhere");
        QTest::newRow("to itself") << QByteArray("link.txt");
    }
    void linksAreNotListed()
    {
        QFETCH(QByteArray, target);
        add("a.txt");
        QVERIFY(QDir(m_folder->path()).mkdir(u"folder"_s));
        QCOMPARE(::symlink(target.constData(), pathOf("link.txt").constData()), 0);
        fill();
        QCOMPARE(titles(), QStringList(u"a.txt"_s));
    }

    void pipesSocketsAndDevicesAreNotListed()
    {
        add("a.txt");
        QCOMPARE(::mkfifo(pathOf("pipe.txt").constData(), 0600), 0);
        QCOMPARE(::mknod(pathOf("socket.txt").constData(), S_IFSOCK | 0600, 0), 0);
        // A device that any user may make.
        QCOMPARE(::mknod(pathOf("device.txt").constData(), S_IFCHR | 0600, makedev(0, 0)), 0);
        fill();
        QCOMPARE(titles(), QStringList(u"a.txt"_s));
    }

    void aFileThatMayNotBeReadIsListed()
    {
        add("a.txt");
        QCOMPARE(::chmod(pathOf("a.txt").constData(), 0), 0);
        fill();
        QCOMPARE(titles(), QStringList(u"a.txt"_s));
    }

    void keepsTheOrderOfTheFileSystem()
    {
        for (char name = 'a'; name < 'p'; ++name)
            add(QByteArray(1, name));
        QStringList listed;
        DIR *directory = ::opendir(url().nativePath().constData());
        while (const dirent *entry = ::readdir(directory)) {
            if (entry->d_name[0] != '.')
                listed.append(QString::fromUtf8(entry->d_name));
        }
        ::closedir(directory);
        fill();
        QCOMPARE(titles(), listed);
    }

    void aColonShowsAsASlash()
    {
        add("a:b.m4a");
        fill();
        QCOMPARE(titles(), QStringList(u"a/b.m4a"_s));
        QCOMPARE(fileNameFromTitle(titles().constFirst()), u"a:b.m4a"_s);
    }

    void anyNameLeadsBackToItsFile_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("not UTF-8") << QByteArray("caf\xe9.txt");
        QTest::newRow("half a character at the end") << QByteArray("caf\xc3");
        QTest::newRow("line feed") << QByteArray("a\nb.txt");
        QTest::newRow("tab") << QByteArray("a\tCtrl+Q");
        QTest::newRow("ampersands") << QByteArray("Tom & Jerry && Co.txt");
        QTest::newRow("right-to-left override") << QByteArray("a\xe2\x80\xaetxt.exe");
        QTest::newRow("colons only") << QByteArray(":::");
        QTest::newRow("space") << QByteArray(" ");
        QTest::newRow("backslash") << QByteArray("a\\b.txt");
        QTest::newRow("emoji") << QByteArray("\xf0\x9f\x8e\x99.m4a");
        QTest::newRow("255 bytes") << QByteArray(251, 'n') + ".m4a";
    }
    void anyNameLeadsBackToItsFile()
    {
        QFETCH(QByteArray, name);
        add(name);
        fill();
        QCOMPARE(m_menu->items().size(), 1);
        const FileURL file = url().appendingPathComponent(fileNameFromTitle(titles().constFirst()));
        QCOMPARE(file.nativeLastPathComponent(), name);
    }

    void theChosenFileIsChecked()
    {
        add("a:b.txt");
        add("A:B.txt");
        fill(u"a:b.txt"_s);
        QCOMPARE(checked(), QStringList(u"a/b.txt"_s));
        fill(u"a/b.txt"_s);
        QCOMPARE(checked(), QStringList());
        fill();
        QCOMPARE(checked(), QStringList());
    }

    void aNewOpeningShowsTheFolderAsItIsThen()
    {
        add("a.txt");
        fill();
        add("b.txt");
        QVERIFY(QFile::remove(m_folder->filePath(u"a.txt"_s)));
        fill(u"a.txt"_s);
        QCOMPARE(titles(), QStringList(u"b.txt"_s));
        QCOMPARE(checked(), QStringList());
    }

    void aForgottenFolderIsSaid()
    {
        for (const char *name : {"1", "2", "3", "4", "5"})
            add(name);
        fill();
        QCOMPARE(m_menu->items().size(), 5);
        QCOMPARE(fillOptionalAttachmentsMenu(*m_menu, std::nullopt, {}, *m_lookUps), 0);
        QCOMPARE(titles(), QStringList(u"No optional outgoing messages folder set"_s));
        QVERIFY(!m_menu->items().constFirst().enabled);
    }

    void aFolderThatCannotBeListedIsEmpty()
    {
        const FolderURL gone = url().appendingPathComponent(u"gone"_s);
        QCOMPARE(fillOptionalAttachmentsMenu(*m_menu, gone, {}, *m_lookUps), ENOENT);
        QVERIFY(m_menu->items().isEmpty());
    }

    void tenThousandFilesAreAllListed()
    {
        for (int at = 0; at < 10'000; ++at)
            add(QByteArray::number(at) + ".txt");
        fill(u"4711.txt"_s);
        QCOMPARE(m_menu->items().size(), 10'000);
        QCOMPARE(checked(), QStringList(u"4711.txt"_s));
    }

    void aFolderThatDoesNotAnswerHoldsTheWindowUpOnce()
    {
        m_lookUps = std::make_unique<BoundedLookUps>(std::chrono::milliseconds(200));
        const HangingFileSystem share(QFile::encodeName(m_folder->path()));
        QVERIFY2(share.isMounted(), qPrintable(qt_error_string()));
        QCOMPARE(fill(), ETIMEDOUT);
        QVERIFY(m_menu->items().isEmpty());
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(fill(), ETIMEDOUT);
        QVERIFY2(timer.elapsed() < 200, "the second opening waits for nobody");
    }
};

int main(int argc, char **argv)
{
    if (!enterPrivateMounts())
        return 1;
    QApplication application(argc, argv);
    TestOptionalAttachmentsMenu test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_optionalattachmentsmenu.moc"
