#include "app/DefaultFolders.h"
#include "app/FolderBookmarks.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>

using namespace kest;

namespace {

// The real store, but it can be told to fail for one folder.
class FailingBookmarkStore : public LinuxBookmarkStore
{
public:
    std::optional<QByteArray> bookmarkData(const FolderURL &folder, Error *error) override
    {
        if (!failsFor.isEmpty() && folder.lastPathComponent() == failsFor) {
            handBack(error, { posixErrorDomain, 13, QStringLiteral("told to"), QString() });
            return {};
        }
        return LinuxBookmarkStore::bookmarkData(folder, error);
    }

    QString failsFor;
};

const QString optionalName = QStringLiteral("Kest Optional Outgoing Messages");

} // namespace

class TestDefaultFolders : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
    FailingBookmarkStore m_store;
    FolderURL m_music;

    bool registerAll() { return registerSettings(*m_defaults, m_store, QList<FolderURL> { m_music }); }

    QString inMusic(const QString &name) const { return m_music.path() + u'/' + name; }

    // Where the look-up of that key finds its folder; null when it finds none.
    QString resolved(const QString &key)
    {
        FolderBookmarks folders(*m_defaults, m_store);
        Error error;
        const auto folder = key == SettingsKeys::dAudioRecordingFolder ? folders.recordingsDirectoryURLWithError(&error)
                                                                       : folders.attachmentsDirectoryURLWithError(&error);
        return folder ? folder->path() : QString();
    }

    // A failure registers nothing.
    void verifyFails(const char *log)
    {
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(QString::fromUtf8(log)));
        QVERIFY(!registerAll());
        for (const SettingsEntry &entry : settingsTable())
            QVERIFY(!m_defaults->objectForKey(entry.key).isValid());
    }

private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_music = FolderURL::fromPath(m_dir->filePath(QStringLiteral("deep/down/Music")));
        m_defaults = std::make_unique<UserDefaults>(m_dir->filePath(QStringLiteral("settings.ini")));
        m_store.failsFor.clear();
    }

    void aFirstStartMakesBothFoldersAndResolvesThem()
    {
        QVERIFY(registerAll());
        QVERIFY(QFileInfo(inMusic(QStringLiteral("Kest"))).isDir());
        QVERIFY(QFileInfo(inMusic(optionalName)).isDir());
        FolderBookmarks folders(*m_defaults, m_store);
        Error error;
        QCOMPARE(folders.recordingsDirectoryURLWithError(&error)->path(), inMusic(QStringLiteral("Kest")));
        QCOMPARE(folders.attachmentsDirectoryURLWithError(&error)->path(), inMusic(optionalName));
        for (const SettingsEntry &entry : settingsTable())
            QVERIFY(m_defaults->objectForKey(entry.key).isValid());
        QVERIFY(!QFile::exists(m_dir->filePath(QStringLiteral("settings.ini"))));
    }

    void foldersThatAreThereAreLeftAsTheyAre_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("recordings") << QStringLiteral("Kest");
        QTest::newRow("prepared messages") << optionalName;
    }

    void foldersThatAreThereAreLeftAsTheyAre()
    {
        QFETCH(QString, folder);
        QVERIFY(registerAll());
        QFile file(inMusic(folder + QStringLiteral("/old.m4a")));
        QVERIFY(file.open(QFile::WriteOnly) && file.write("spoken") == 6);
        file.close();
        // Long ago, so that a change shows however coarse the file system's clock is.
        const std::filesystem::path path = inMusic(folder).toStdString();
        const auto before = std::filesystem::last_write_time(path) - std::chrono::hours(24);
        std::filesystem::last_write_time(path, before);
        QVERIFY(registerAll());
        QCOMPARE(file.size(), 6);
        QVERIFY(std::filesystem::last_write_time(path) == before);
    }

    void aDeletedFolderReappearsAtTheNextStartAlsoWhenAnotherIsChosen_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("folder");
        QTest::newRow("recordings") << SettingsKeys::dAudioRecordingFolder << QStringLiteral("Kest");
        QTest::newRow("prepared messages") << SettingsKeys::dAttachmentsFolder << optionalName;
    }

    void aDeletedFolderReappearsAtTheNextStartAlsoWhenAnotherIsChosen()
    {
        QFETCH(QString, key);
        QFETCH(QString, folder);
        QVERIFY(registerAll());
        QVERIFY(QDir().mkpath(m_dir->filePath(QStringLiteral("mine"))));
        const FolderURL mine = FolderURL::fromPath(m_dir->filePath(QStringLiteral("mine")));
        m_defaults->setObject(*m_store.bookmarkData(mine, nullptr), key);
        QVERIFY(QDir(inMusic(folder)).removeRecursively());
        QVERIFY(registerAll());
        QVERIFY(QFileInfo(inMusic(folder)).isDir());
        QCOMPARE(resolved(key), mine.path());
        m_defaults->setObject({}, key);
        QCOMPARE(resolved(key), inMusic(folder)); // by the bookmark of the folder that was made just now
    }

    void aChosenFolderThatIsDeletedIsError11001AndOneThatMovesIsStoredAgain()
    {
        QVERIFY(registerAll());
        const QString mine = m_dir->filePath(QStringLiteral("a/mine"));
        const QString moved = m_dir->filePath(QStringLiteral("a/yours"));
        QVERIFY(QDir().mkpath(mine));
        m_defaults->setObject(*m_store.bookmarkData(FolderURL::fromPath(mine), nullptr),
                              SettingsKeys::dAttachmentsFolder);
        const QVariant first = m_defaults->objectForKey(SettingsKeys::dAttachmentsFolder);
        QVERIFY(QDir().rename(mine, moved));
        FolderBookmarks folders(*m_defaults, m_store);
        Error error;
        QCOMPARE(folders.attachmentsDirectoryURLWithError(&error)->path(), moved);
        const QVariant second = m_defaults->objectForKey(SettingsKeys::dAttachmentsFolder);
        QVERIFY(second != first);
        QCOMPARE(folders.attachmentsDirectoryURLWithError(&error)->path(), moved);
        QCOMPARE(m_defaults->objectForKey(SettingsKeys::dAttachmentsFolder), second);
        QVERIFY(QDir().rmdir(moved));
        QVERIFY(!folders.attachmentsDirectoryURLWithError(&error));
        QCOMPARE(error.code, 11001);
        QCOMPARE(error.failureReason, QStringLiteral("Stored optional attachments folder could not be retrieved"));
    }

    void noListOfMusicFoldersIsLogged()
    {
        QTest::ignoreMessage(QtCriticalMsg, "Error finding Music URL");
        QVERIFY(!registerSettings(*m_defaults, m_store, std::nullopt));
        QVERIFY(!m_defaults->objectForKey(SettingsKeys::bIncludeTagline).isValid());
    }

    void aFileWhereTheRecordingsFolderShouldBeIsLogged()
    {
        QVERIFY(QDir().mkpath(m_music.path()));
        QFile file(inMusic(QStringLiteral("Kest")));
        QVERIFY(file.open(QFile::WriteOnly));
        verifyFails("^Error creating ~/Music/Kest : Error Domain=POSIXErrorDomain Code=\\d+ ");
        QVERIFY(!QFile::exists(inMusic(optionalName)));
    }

    void aFileWhereTheOptionalFolderShouldBeIsLogged()
    {
        QVERIFY(QDir().mkpath(m_music.path()));
        QFile file(inMusic(optionalName));
        QVERIFY(file.open(QFile::WriteOnly));
        verifyFails("^Error creating ~/Music/Kest Optional Outgoing Messages : Error Domain=POSIXErrorDomain ");
    }

    void aBookmarkOfTheRecordingsFolderThatCannotBeMadeIsLogged()
    {
        m_store.failsFor = QStringLiteral("Kest");
        verifyFails("^Error storing ~/Music/Kest : Error Domain=POSIXErrorDomain Code=13 \"told to\"$");
    }

    void aBookmarkOfTheOptionalFolderThatCannotBeMadeIsLogged()
    {
        m_store.failsFor = optionalName;
        verifyFails("^Error storing ~/Music/Kest Optional Outgoing Messages : .* Code=13 \"told to\"$");
    }

    void theMusicFolderIsTheOneOfTheUserDirectories()
    {
        QVERIFY(musicFolders());
        QCOMPARE(musicFolders()->first().path(), QDir::homePath() + QStringLiteral("/Music"));
        QFile file(qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/user-dirs.dirs"));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("XDG_MUSIC_DIR=\"$HOME/Musik\"\n");
        file.close();
        QCOMPARE(musicFolders()->first().path(), QDir::homePath() + QStringLiteral("/Musik"));
        QVERIFY(file.remove());
    }
};

QTEST_GUILESS_MAIN(TestDefaultFolders)
#include "tst_defaultfolders.moc"
