#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <memory>
#include <optional>

namespace kest {

class BookmarkStore;
class HeldFolder;
class UserDefaults;

/// Finds the two folders by the bookmarks in the settings.
///
/// Keeps nothing: each look-up reads the settings and resolves anew, so a
/// folder that was moved meanwhile is found at its new place. Main thread.
class FolderBookmarks
{
public:
    /// Codes in `kestErrorDomain`, the same for both folders: who asks knows
    /// which one it asked for.
    enum ErrorCode {
        FolderSettingMissing = 11000,
        BookmarkNotResolved = 11001,
    };

    /// Both must outlive this object.
    FolderBookmarks(UserDefaults &defaults, BookmarkStore &store);

    /// The recordings folder, or nothing; then `error` says why. A stale
    /// bookmark is stored again; when that fails it is logged, with what the
    /// caller's slot then holds, and the look-up succeeds all the same, so give
    /// a slot. The caller brackets every use of the folder's contents with its
    /// startAccessing… and stopAccessingSecurityScopedResource.
    std::optional<FolderURL> recordingsDirectoryURLWithError(Error *error);

    /// The recordings folder as above, held. Nothing, too, when what is found is
    /// not the folder that was known until now but one that took its place; the
    /// next look-up knows that one.
    std::unique_ptr<HeldFolder> heldRecordingsDirectory(Error *error);

    /// As recordingsDirectoryURLWithError, for the folder of prepared messages.
    std::optional<FolderURL> attachmentsDirectoryURLWithError(Error *error);

private:
    struct Folder; // one folder's key and texts

    static const Folder &recordings();
    static Error notRetrieved(const Folder &folder);
    std::optional<FolderURL> lookUp(const Folder &folder, Error *error);
    void storeAgain(const QString &key, const FolderURL &url, Error *error);

    UserDefaults &m_defaults;
    BookmarkStore &m_store;
};

} // namespace kest
