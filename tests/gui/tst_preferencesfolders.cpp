#include "app/FolderBookmarks.h"
#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "support/PrivateMounts.h"
#include "ui/controls/ReadoutField.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

/// The two folders as the settings have them.
class StoredFolders : public ApplicationDelegate
{
public:
    StoredFolders(UserDefaults &defaults, BookmarkStore &store) : m_bookmarks(defaults, store) { }

    std::optional<FolderURL> recordingsDirectoryURLWithError(Error *error) override
    {
        ++lookUps;
        return m_bookmarks.recordingsDirectoryURLWithError(error);
    }

    std::optional<FolderURL> attachmentsDirectoryURLWithError(Error *error) override
    {
        ++lookUps;
        return m_bookmarks.attachmentsDirectoryURLWithError(error);
    }

    int lookUps = 0;

private:
    FolderBookmarks m_bookmarks;
};

struct WhichFolder {
    QString name; // of its field
    QString key;
};

const WhichFolder recordings{u"Recordings Folder"_s, SettingsKeys::dAudioRecordingFolder};
const WhichFolder prepared{u"Optional Messages Folder"_s, SettingsKeys::dAttachmentsFolder};

} // namespace

Q_DECLARE_METATYPE(WhichFolder)

/// The sheet's two folders: real folders, real bookmarks, the real panel.
class TestPreferencesFolders : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;
    std::unique_ptr<StoredFolders> m_folders;

    PreferencesWindowController &preferences() { return *m_house->controller->preferences(); }
    QString shown(const WhichFolder &which) { return m_house->find<ReadoutField>(which.name)->text(); }

    std::optional<FolderURL> lookedUp(const WhichFolder &which)
    {
        Error error;
        return which.key == recordings.key ? m_folders->recordingsDirectoryURLWithError(&error)
                                           : m_folders->attachmentsDirectoryURLWithError(&error);
    }

    std::optional<FolderURL> held(const WhichFolder &which)
    {
        return which.key == recordings.key ? preferences().recordingDir() : preferences().attachmentsDir();
    }

    QFileDialog *panel()
    {
        auto *found = preferences().window()->findChild<QFileDialog *>();
        return found && found->isVisible() ? found : nullptr;
    }

    /// Presses the folder's Choose button and waits for the panel.
    QFileDialog *openPanel(const WhichFolder &which)
    {
        m_house->click(u"Choose "_s + which.name);
        if (!QTest::qWaitFor([this] { return panel() != nullptr; }))
            qFatal("no panel");
        return panel();
    }

    /// Types the path into the panel and presses its button.
    void pick(QFileDialog *panel, const QString &path)
    {
        auto *name = panel->findChild<QLineEdit *>(u"fileNameEdit"_s);
        name->setText(path);
        for (QPushButton *button : panel->findChildren<QPushButton *>()) {
            if (button->text().remove(u'&') == u"Choose")
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }

    static void addBoth()
    {
        QTest::addColumn<WhichFolder>("which");
        QTest::newRow("recordings") << recordings;
        QTest::newRow("prepared messages") << prepared;
    }

private Q_SLOTS:
    void init()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_house = std::make_unique<WindowHouse>();
        m_folders = std::make_unique<StoredFolders>(*m_house->settings, m_house->bookmarks);
        for (const WhichFolder &which : {recordings, prepared})
            m_house->settings->registerDefaults(
                {{which.key, *m_house->bookmarks.bookmarkData(m_house->folder(which.name + u" at first"_s), nullptr)}});
        m_house->otherDelegate = m_folders.get();
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void theFoldersAreShownAsTheyAreFound_data() { addBoth(); }

    void theFoldersAreShownAsTheyAreFound()
    {
        QFETCH(WhichFolder, which);
        m_house->openPreferences();
        QCOMPARE(shown(which), m_house->home.filePath(which.name + u" at first"_s));
        QCOMPARE(held(which), lookedUp(which));
    }

    void theyAreLookedUpOnceARun()
    {
        m_house->openPreferences();
        preferences().closePrefsSheet();
        m_house->openPreferences();
        QCOMPARE(m_folders->lookUps, 2);
    }

    void aChosenFolderIsStoredAtOnce_data() { addBoth(); }

    void aChosenFolderIsStoredAtOnce()
    {
        QFETCH(WhichFolder, which);
        const FolderURL wanted = m_house->folder(u"Spoken mail"_s);
        m_house->openPreferences();
        QFileDialog *choosing = openPanel(which);
        QCOMPARE(choosing->windowModality(), Qt::WindowModal);
        QCOMPARE(choosing->fileMode(), QFileDialog::Directory);
        QCOMPARE(choosing->directory().path(), m_house->home.filePath(which.name + u" at first"_s));
        pick(choosing, wanted.path());
        QTRY_VERIFY(!panel());
        QCOMPARE(lookedUp(which), std::optional(wanted));
        QCOMPARE(held(which), std::optional(wanted));
        QCOMPARE(shown(which), wanted.path());
        const WhichFolder &other = which.key == recordings.key ? prepared : recordings;
        QCOMPARE(shown(other), m_house->home.filePath(other.name + u" at first"_s));
    }

    void cancellingChangesNothing_data() { addBoth(); }

    void cancellingChangesNothing()
    {
        QFETCH(WhichFolder, which);
        m_house->openPreferences();
        QSignalSpy written(m_house->settings.get(), &UserDefaults::valueChanged);
        const auto before = held(which);
        QFileDialog *choosing = openPanel(which);
        choosing->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(m_house->folder(u"Other"_s).path());
        QTest::keyClick(choosing, Qt::Key_Escape);
        QTRY_VERIFY(!panel());
        QVERIFY(written.isEmpty());
        QCOMPARE(held(which), before);
        QCOMPARE(shown(which), before->path());
        QVERIFY(m_house->controller->sheetShowing());
    }

    void aFolderThatIsNotFoundIsSaidAndMayBeChosenAnew_data() { addBoth(); }

    void aFolderThatIsNotFoundIsSaidAndMayBeChosenAnew()
    {
        QFETCH(WhichFolder, which);
        m_house->settings->setObject(QByteArray("no bookmark"), which.key);
        m_house->openPreferences();
        QVERIFY(!held(which));
        QCOMPARE(shown(which), u"Not found – please choose one"_s);
        m_house->click(u"Reveal "_s + which.name);
        QVERIFY(m_house->workspace.opened.isEmpty());
        const FolderURL wanted = m_house->folder(u"New"_s);
        pick(openPanel(which), wanted.path());
        QTRY_COMPARE(lookedUp(which), std::optional(wanted));
    }

    void aFolderThatVanishedStaysChosenAndThePanelOpensElsewhere()
    {
        m_house->openPreferences();
        QVERIFY(QDir(held(recordings)->path()).removeRecursively());
        QFileDialog *choosing = openPanel(recordings);
        QVERIFY(choosing->directory().exists());
        const FolderURL wanted = m_house->folder(u"New"_s);
        pick(choosing, wanted.path());
        QTRY_COMPARE(lookedUp(recordings), std::optional(wanted));
    }

    void aFolderThatVanishesWhileItIsChosenIsLoggedAndToldAndChangesNothing()
    {
        m_house->openPreferences();
        const auto before = held(recordings);
        QFileDialog *choosing = openPanel(recordings);
        // The panel's own answer, for a folder that is gone by the time it is asked for.
        const FolderURL gone = m_house->folder(u"Gone"_s);
        choosing->setDirectory(gone.path());
        choosing->findChild<QLineEdit *>(u"fileNameEdit"_s)->clear();
        QVERIFY(QDir(gone.path()).removeRecursively());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^Error storing dir prefs : .*POSIXErrorDomain"_s));
        static_cast<QDialog *>(choosing)->done(QDialog::Accepted);
        QTRY_VERIFY(!panel());
        QCOMPARE(held(recordings), before);
        QCOMPARE(lookedUp(recordings), before);
        QCOMPARE(shown(recordings), before->path());
        QVERIFY(!m_house->find<ReadoutField>(u"Preferences Notice"_s)->text().isEmpty());
    }

    void aRecordingsFolderThatCannotBeWrittenIsKeptAndTold()
    {
        const FolderURL wanted = m_house->folder(u"Read only"_s);
        kest::testing::SmallFileSystem disk(wanted.nativePath(), "size=16k");
        QVERIFY(disk.isMounted() && disk.makeReadOnly());
        m_house->openPreferences();
        pick(openPanel(recordings), wanted.path());
        QTRY_COMPARE(lookedUp(recordings), std::optional(wanted));
        const auto *notice = m_house->find<ReadoutField>(u"Preferences Notice"_s);
        QCOMPARE(notice->text(), u"Kest may not write to that folder."_s);
        pick(openPanel(recordings), m_house->folder(u"Writable"_s).path());
        QTRY_VERIFY(notice->text().isEmpty());
        pick(openPanel(prepared), wanted.path());
        QTRY_COMPARE(lookedUp(prepared), std::optional(wanted));
        QVERIFY(notice->text().isEmpty());
    }

    void settingsThatCannotBeSavedAreToldOnTheSheet()
    {
        m_house.reset();
        m_house = std::make_unique<WindowHouse>();
        kest::testing::SmallFileSystem disk(m_house->home.path().toUtf8(), "size=16k");
        QVERIFY(disk.isMounted() && disk.makeReadOnly());
        m_house->openAndShow();
        m_house->openPreferences();
        const auto *notice = m_house->find<ReadoutField>(u"Preferences Notice"_s);
        QVERIFY(notice->text().isEmpty());
        QTest::keyClicks(m_house->find(u"Subject"_s), u"x"_s);
        QVERIFY(!notice->text().isEmpty());
        QCOMPARE(notice->text(), m_house->notice());
        QVERIFY(m_house->settings->objectForKey(SettingsKeys::tNewMessageSubject).toString().endsWith(u'x'));
    }

    void revealShowsTheHeldFolder_data() { addBoth(); }

    void revealShowsTheHeldFolder()
    {
        QFETCH(WhichFolder, which);
        m_house->openPreferences();
        m_house->click(u"Reveal "_s + which.name);
        QCOMPARE(m_house->workspace.opened, QList{QUrl::fromLocalFile(held(which)->path())});
        m_house->workspace.opens = false;
        m_house->click(u"Reveal "_s + which.name);
        QVERIFY(!m_house->find<ReadoutField>(u"Preferences Notice"_s)->text().isEmpty());
    }
};

int main(int argc, char **argv)
{
    if (!kest::testing::enterPrivateMounts())
        qFatal("no private mounts");
    QApplication app(argc, argv);
    TestPreferencesFolders test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_preferencesfolders.moc"
