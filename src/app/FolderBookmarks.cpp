#include "app/FolderBookmarks.h"

#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"

#include <QLoggingCategory>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcFolders, "kest.folders")

} // namespace

struct FolderBookmarks::Folder {
    QString key;
    const char *missing;         // what to tell the person
    const char *missingReason;
    const char *notRetrieved;
    const char *notRetrievedReason;
};

FolderBookmarks::FolderBookmarks(UserDefaults &defaults, BookmarkStore &store) : m_defaults(defaults), m_store(store)
{
}

const FolderBookmarks::Folder &FolderBookmarks::recordings()
{
    static const Folder folder {
        SettingsKeys::dAudioRecordingFolder,
        QT_TRANSLATE_NOOP("kest",
                          "Stored recordings folder is missing or has been moved. You need to choose it again."),
        QT_TRANSLATE_NOOP("kest", "Stored recordings folder is missing"),
        QT_TRANSLATE_NOOP("kest",
                          "Stored recordings folder could not be retrieved. You need to choose it again."),
        QT_TRANSLATE_NOOP("kest", "Stored recordings folder could not be retrieved"),
    };
    return folder;
}

std::optional<FolderURL> FolderBookmarks::recordingsDirectoryURLWithError(Error *error)
{
    return lookUp(recordings(), error);
}

std::unique_ptr<HeldFolder> FolderBookmarks::heldRecordingsDirectory(Error *error)
{
    // As it was before the look-up, which may store another one.
    const QByteArray known = m_defaults.objectForKey(recordings().key).toByteArray();
    const auto url = lookUp(recordings(), error);
    auto held = url ? m_store.hold(*url, known) : nullptr;
    if (url && !held)
        handBack(error, notRetrieved(recordings()));
    return held;
}

std::optional<FolderURL> FolderBookmarks::attachmentsDirectoryURLWithError(Error *error)
{
    static const Folder folder {
        SettingsKeys::dAttachmentsFolder,
        QT_TRANSLATE_NOOP("kest",
                          "Stored optional attachments folder is missing or has been moved. You need to choose it again."),
        QT_TRANSLATE_NOOP("kest", "Stored optional attachments folder is missing"),
        QT_TRANSLATE_NOOP("kest",
                          "Stored optional attachments folder could not be retrieved. You need to choose it again."),
        QT_TRANSLATE_NOOP("kest", "Stored optional attachments folder could not be retrieved"),
    };
    return lookUp(folder, error);
}

Error FolderBookmarks::notRetrieved(const Folder &folder)
{
    return { kestErrorDomain, BookmarkNotResolved, localizedString(QString::fromUtf8(folder.notRetrieved)),
             localizedString(QString::fromUtf8(folder.notRetrievedReason)) };
}

std::optional<FolderURL> FolderBookmarks::lookUp(const Folder &folder, Error *error)
{
    const QVariant data = m_defaults.objectForKey(folder.key);
    if (!data.isValid()) {
        handBack(error, { kestErrorDomain, FolderSettingMissing, localizedString(QString::fromUtf8(folder.missing)),
                          localizedString(QString::fromUtf8(folder.missingReason)) });
        return {};
    }
    const auto resolved = m_store.resolveBookmarkData(data.toByteArray(), error);
    if (!resolved) {
        handBack(error, notRetrieved(folder));
        return {};
    }
    if (resolved->isStale)
        storeAgain(folder.key, resolved->folder, error);
    return resolved->folder;
}

// On failure the old bookmark stays, and the next look-up tries again.
void FolderBookmarks::storeAgain(const QString &key, const FolderURL &url, Error *error)
{
    if (const auto data = m_store.bookmarkData(url, error))
        m_defaults.setObject(*data, key);
    else
        qCWarning(lcFolders, "Failed to re-store stale bookmark: %s",
                  qUtf8Printable(error ? logText(*error) : QString()));
}

} // namespace kest
