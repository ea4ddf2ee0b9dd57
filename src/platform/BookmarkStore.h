#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"
#include "platform/HeldFolder.h"

#include <QByteArray>

#include <memory>
#include <optional>

namespace kest {

/// Turns folders into opaque bytes that outlast a move or a new name, and back.
class BookmarkStore
{
public:
    virtual ~BookmarkStore() = default;

    /// Bytes that `resolveBookmarkData` can find the folder by, or nothing when
    /// there is no such folder.
    virtual std::optional<QByteArray> bookmarkData(const FolderURL &folder, Error *error) = 0;

    struct Resolved {
        FolderURL folder;
        bool isStale = false; ///< Found, but the bookmark should be made again.
    };

    /// The folder's present location, or nothing when it cannot be found.
    virtual std::optional<Resolved> resolveBookmarkData(const QByteArray &data, Error *error) = 0;

    /// The folder at `folder`, when it is the one that `data` was made of; else
    /// null. What is done to the path afterwards does not matter.
    virtual std::unique_ptr<HeldFolder> hold(const FolderURL &folder, const QByteArray &data) = 0;
};

} // namespace kest
