#pragma once

#include "platform/linux/desktop/FolderIdentity.h"

#include <QByteArray>

#include <optional>

namespace kest {

/// A folder as it is remembered: where it lay, and what it was.
struct FolderBookmark {
    QByteArray path;     ///< Absolute.
    QByteArray realPath; ///< Without symbolic links.
    FolderIdentity identity;

    /// The bytes that stand in the settings.
    QByteArray toBytes() const;

    /// Nothing when the bytes are no bookmark.
    static std::optional<FolderBookmark> fromBytes(const QByteArray &bytes);
};

} // namespace kest
