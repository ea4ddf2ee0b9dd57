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

std::optional<FolderURL> FolderBookmarks::recordingsDirectoryURLWithError(Error *error)
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
    return lookUp(folder, error);
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
        handBack(error, { kestErrorDomain, BookmarkNotResolved, localizedString(QString::fromUtf8(folder.notRetrieved)),
                          localizedString(QString::fromUtf8(folder.notRetrievedReason)) });
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
