#pragma once

#include "platform/BookmarkStore.h"
#include "platform/BoundedLookUps.h"
#include "platform/linux/desktop/FolderSearch.h"

namespace kest {

/// Bookmarks of folders on Linux: the path, and the identity of what lay there.
///
/// A bookmark resolves to
/// - the folder at its path, when that is still the same one;
/// - else the same folder found nearby, stale: in the tree of the folder it lay
///   in, in the trees of that one's parents, in the home folder;
/// - else whatever folder stands at the path (put back from a backup), stale;
/// - else nothing, with the system's error for the path.
///
/// A folder that moved to another file system is a copy there and another one
/// here, so it is not found. No call takes longer than a second, also when a
/// file server does not answer: then the result is nothing and the error is
/// ETIMEDOUT. Main thread; the work is done on a thread of its own.
class LinuxBookmarkStore : public BookmarkStore
{
public:
    explicit LinuxBookmarkStore(SearchBounds bounds = {});

    std::optional<QByteArray> bookmarkData(const FolderURL &folder, Error *error) override;
    std::optional<Resolved> resolveBookmarkData(const QByteArray &data, Error *error) override;
    std::unique_ptr<HeldFolder> hold(const FolderURL &folder, const QByteArray &data) override;

private:
    SearchBounds m_bounds;
    BoundedLookUps m_lookUps;
};

} // namespace kest
