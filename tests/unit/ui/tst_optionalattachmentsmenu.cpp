#include "ui/OptionalAttachmentsMenu.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QtTest>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

using namespace kest;

class TestOptionalAttachmentsMenu : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QMenu> m_menu;

    FolderURL url() const { return FileURL::fromPath(m_folder->path()); }

    void add(const QByteArray &name) const
    {
        // By its bytes: a QFile's name cannot be anything but UTF-8.
        const int file = ::creat(url().appendingNativePathComponent(name).nativePath().constData(), 0600);
        QVERIFY(file >= 0);
        ::close(file);
    }

    void fill(const QString &chosen = {}) { fillOptionalAttachmentsMenu(*m_menu, url(), chosen); }

    QStringList titles() const
    {
        QStringList list;
        const QList<QAction *> items = m_menu->actions();
        for (qsizetype i = 1; i < items.size(); ++i)
            list.append(attachmentTitle(*items[i]));
        return list;
    }

    QStringList checked() const
    {
        QStringList list;
        const QList<QAction *> items = m_menu->actions();
        for (const QAction *item : items) {
            if (item->isChecked())
                list.append(attachmentTitle(*item));
        }
        return list;
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_menu = std::make_unique<QMenu>();
        m_menu->addAction(QString())->setVisible(false);
    }

    void anEmptyFolderLeavesTheFixedItemOnly()
    {
        const QAction *fixed = m_menu->actions().constFirst();
        fill();
        QCOMPARE(m_menu->actions().size(), 1);
        QCOMPARE(m_menu->actions().constFirst(), fixed);
    }

    void listsVisibleRegularFilesOnly()
    {
        add(".hidden");
        add("a.txt");
        add("b.m4a");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        QVERIFY(QFile::link(m_folder->filePath(QStringLiteral("a.txt")), m_folder->filePath(QStringLiteral("link"))));
        fill();
        QStringList sorted = titles();
        sorted.sort();
        QCOMPARE(sorted, QStringList({QStringLiteral("a.txt"), QStringLiteral("b.m4a")}));
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
        QCOMPARE(titles(), QStringList(QStringLiteral("a/b.m4a")));
        QCOMPARE(fileNameFromTitle(titles().constFirst()), QStringLiteral("a:b.m4a"));
    }

    void anAmpersandIsAnAmpersand()
    {
        add("Tom & Jerry.txt");
        fill();
        QCOMPARE(m_menu->actions().constLast()->text(), QStringLiteral("Tom && Jerry.txt"));
        QCOMPARE(titles(), QStringList(QStringLiteral("Tom & Jerry.txt")));
    }

    void theChosenFileIsChecked()
    {
        add("a:b.txt");
        add("A:B.txt");
        fill(QStringLiteral("a:b.txt"));
        QCOMPARE(checked(), QStringList(QStringLiteral("a/b.txt")));
        fill(QStringLiteral("a/b.txt"));
        QCOMPARE(checked(), QStringList());
    }

    void aForgottenFolderIsSaid()
    {
        for (const char *name : {"1", "2", "3", "4", "5"})
            add(name);
        fill();
        QCOMPARE(m_menu->actions().size(), 6);
        fillOptionalAttachmentsMenu(*m_menu, std::nullopt, {});
        QCOMPARE(titles(), QStringList(QStringLiteral("No optional outgoing messages folder set")));
        QVERIFY(!m_menu->actions().constLast()->isEnabled());
    }

    void aFolderThatCannotBeListedIsEmpty()
    {
        fillOptionalAttachmentsMenu(*m_menu, url().appendingPathComponent(QStringLiteral("gone")), {});
        QCOMPARE(m_menu->actions().size(), 1);
    }

    void aNameThatIsNotUtf8LeadsBackToItsFile()
    {
        const QByteArray name("caf\xe9.txt");
        add(name);
        fill();
        const FileURL file = url().appendingPathComponent(fileNameFromTitle(titles().constFirst()));
        QCOMPARE(file.nativeLastPathComponent(), name);
    }
};

QTEST_MAIN(TestOptionalAttachmentsMenu)
#include "tst_optionalattachmentsmenu.moc"
