#pragma once

#include "platform/linux/desktop/FolderIdentity.h"

#include <QList>

#include <chrono>

namespace kest {

/// What a search may cost.
struct SearchBounds {
    int entries = 100'000;               ///< Directory entries read, over all roots.
    std::chrono::milliseconds time { 600 }; ///< Over all roots.
};

/// Looks for a folder that was moved or given a new name, in the trees of
/// `roots`, one after the other, each level by level, so that what is near is
/// found first. A root but the last may use half of what is left of the
/// bounds.
///
/// A folder keeps its identity only within its file system, so the search never
/// leaves the one that a root lies on, and skips a root on a network or FUSE
/// file system. It follows no symbolic link, triggers no automount, and does
/// not descend into hidden folders, among them the Trash: what was thrown away
/// counts as gone.
///
/// Reads the disk; returns nothing when the folder was not found within the
/// bounds. Any thread.
std::optional<QByteArray> findFolder(const FolderIdentity &identity, const QList<QByteArray> &roots,
                                     const SearchBounds &bounds);

} // namespace kest
