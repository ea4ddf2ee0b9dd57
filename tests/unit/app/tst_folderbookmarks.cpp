#include "app/FolderBookmarks.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"

#include <QFile>
#include <QMessageLogContext>
#include <QTemporaryDir>
#include <QTest>

using namespace kest;

namespace {

// Answers what the test tells it to, and counts.
class FakeBookmarkStore : public BookmarkStore
{
public:
    std::optional<QByteArray> bookmarkData(const FolderURL &folder, Error *error) override
    {
        ++made;
        if (!makes)
            handBack(error, { posixErrorDomain, 28, QStringLiteral("no room"), QString() });
        return makes ? std::optional("made of " + folder.nativePath()) : std::nullopt;
    }

    std::optional<Resolved> resolveBookmarkData(const QByteArray &data, Error *error) override
    {
        seen = data;
        if (!resolved)
            handBack(error, { posixErrorDomain, 2, QStringLiteral("platform's own"), QString() });
        return resolved;
    }

    std::unique_ptr<HeldFolder> hold(const FolderURL &folder, const QByteArray &data) override
    {
        heldBy = data;
        return holds ? std::make_unique<HeldFolder>(folder) : nullptr;
    }

    bool makes = true;
    int made = 0;
    bool holds = true;
    QByteArray seen, heldBy;
    std::optional<Resolved> resolved;
};

/// Notes whatever is logged, of every kind, while it lives.
class Listening
{
public:
    Listening()
    {
        heard.clear();
        m_before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &message) { heard.append(message); });
    }
    ~Listening() { qInstallMessageHandler(m_before); }
    Q_DISABLE_COPY_MOVE(Listening)

    static inline QStringList heard;

private:
    QtMessageHandler m_before = nullptr;
};

} // namespace

class TestFolderBookmarks : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<UserDefaults> m_defaults;
    FakeBookmarkStore m_store;
    std::unique_ptr<FolderBookmarks> m_folders;
    const FolderURL m_place = FolderURL::fromPath(QStringLiteral("/somewhere/Kest"));

private Q_SLOTS:
    void init()
    {
        QFile::remove(m_dir.filePath(QStringLiteral("settings.ini")));
        m_defaults = std::make_unique<UserDefaults>(m_dir.filePath(QStringLiteral("settings.ini")));
        m_store = FakeBookmarkStore();
        m_folders = std::make_unique<FolderBookmarks>(*m_defaults, m_store);
    }

    void aSettingWithoutAValueIsError11000()
    {
        Error error;
        QVERIFY(!m_folders->recordingsDirectoryURLWithError(&error));
        QCOMPARE(error, (Error { QStringLiteral("KestErrorDomain"), 11000,
                                 QStringLiteral("Stored recordings folder is missing or has been moved. "
                                                "You need to choose it again."),
                                 QStringLiteral("Stored recordings folder is missing") }));
        QVERIFY(!m_folders->attachmentsDirectoryURLWithError(&error));
        QCOMPARE(error, (Error { QStringLiteral("KestErrorDomain"), 11000,
                                 QStringLiteral("Stored optional attachments folder is missing or has been moved. "
                                                "You need to choose it again."),
                                 QStringLiteral("Stored optional attachments folder is missing") }));
    }

    void aBookmarkThatCannotBeResolvedIsError11001InPlaceOfThePlatformsOwn()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        Error error;
        QVERIFY(!m_folders->recordingsDirectoryURLWithError(&error));
        QCOMPARE(m_store.seen, QByteArray("R"));
        QCOMPARE(error, (Error { QStringLiteral("KestErrorDomain"), 11001,
                                 QStringLiteral("Stored recordings folder could not be retrieved. "
                                                "You need to choose it again."),
                                 QStringLiteral("Stored recordings folder could not be retrieved") }));
        QVERIFY(!m_folders->attachmentsDirectoryURLWithError(&error));
        QCOMPARE(m_store.seen, QByteArray("A"));
        QCOMPARE(error, (Error { QStringLiteral("KestErrorDomain"), 11001,
                                 QStringLiteral("Stored optional attachments folder could not be retrieved. "
                                                "You need to choose it again."),
                                 QStringLiteral("Stored optional attachments folder could not be retrieved") }));
    }

    void withoutASlotNothingIsReported_data()
    {
        QTest::addColumn<bool>("registered");
        QTest::newRow("no value") << false;
        QTest::newRow("a bookmark that cannot be resolved") << true;
    }

    void withoutASlotNothingIsReported()
    {
        QFETCH(bool, registered);
        if (registered)
            m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        const Listening listening;
        QVERIFY(!m_folders->recordingsDirectoryURLWithError(nullptr));
        QVERIFY(!m_folders->attachmentsDirectoryURLWithError(nullptr));
        QCOMPARE(Listening::heard, QStringList());
    }

    void aFolderThatIsFoundLeavesTheSlotAndTheSettingAlone()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        m_store.resolved = { m_place, false };
        const Error before { QStringLiteral("earlier"), 1, QString(), QString() };
        Error error = before;
        QCOMPARE(m_folders->recordingsDirectoryURLWithError(&error), m_place);
        QCOMPARE(error, before);
        QCOMPARE(m_store.made, 0);
        QVERIFY(!QFile::exists(m_dir.filePath(QStringLiteral("settings.ini"))));
    }

    void aStaleBookmarkIsStoredAgain()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        m_store.resolved = { m_place, true };
        Error error;
        QCOMPARE(m_folders->attachmentsDirectoryURLWithError(&error), m_place);
        QCOMPARE(m_defaults->objectForKey(SettingsKeys::dAttachmentsFolder).toByteArray(),
                 QByteArray("made of /somewhere/Kest"));
        QCOMPARE(m_defaults->objectForKey(SettingsKeys::dAudioRecordingFolder).toByteArray(), QByteArray("R"));
        m_store.resolved = { m_place, false };
        QCOMPARE(m_folders->attachmentsDirectoryURLWithError(&error), m_place);
        QCOMPARE(m_store.seen, QByteArray("made of /somewhere/Kest"));
        QCOMPARE(m_store.made, 1);
    }

    void aStaleBookmarkThatCannotBeStoredAgainIsLoggedAndTriedAgain()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        m_store.resolved = { m_place, true };
        m_store.makes = false;
        for (int time = 1; time <= 2; ++time) {
            Error error;
            QTest::ignoreMessage(QtWarningMsg, "Failed to re-store stale bookmark: "
                                               "Error Domain=POSIXErrorDomain Code=28 \"no room\"");
            QCOMPARE(m_folders->recordingsDirectoryURLWithError(&error), m_place);
            QCOMPARE(error.code, 28);
            QCOMPARE(m_store.made, time);
            QCOMPARE(m_store.seen, QByteArray("R"));
        }
    }

    void theHeldFolderIsTheOneThatWasKnownBeforeTheLookUp()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        m_store.resolved = { m_place, true };
        Error error;
        const auto held = m_folders->heldRecordingsDirectory(&error);
        QVERIFY(held);
        QCOMPARE(held->url(), m_place);
        QCOMPARE(m_store.heldBy, QByteArray("R"));
        QCOMPARE(m_defaults->objectForKey(SettingsKeys::dAudioRecordingFolder).toByteArray(),
                 QByteArray("made of /somewhere/Kest"));
        QCOMPARE(error, Error());
    }

    void aFolderThatTookThePlaceOfTheKnownOneIsNotHeld()
    {
        m_defaults->registerDefaults(defaultsToRegister("R", "A"));
        m_store.resolved = { m_place, true };
        m_store.holds = false;
        Error error;
        QVERIFY(!m_folders->heldRecordingsDirectory(&error));
        QCOMPARE(error.code, int(FolderBookmarks::BookmarkNotResolved));
        m_store.holds = true;
        QVERIFY(m_folders->heldRecordingsDirectory(&error));
        QCOMPARE(m_store.heldBy, QByteArray("made of /somewhere/Kest"));
    }
};

QTEST_GUILESS_MAIN(TestFolderBookmarks)
#include "tst_folderbookmarks.moc"
