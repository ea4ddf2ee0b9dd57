#pragma once

#include "platform/FileURL.h"

#include <QList>

#include <optional>

namespace kest {

class BookmarkStore;
class UserDefaults;

/// The person's Music folders by the XDG user directories, the first one to be
/// used; nothing when the system has no such list.
std::optional<QList<FolderURL>> musicFolders();

/// Makes the two default folders inside the first Music folder, where they are
/// missing, and registers all settings with this start's bookmarks of them.
/// Changes nothing inside the folders and writes no setting.
///
/// False when a folder or its bookmark cannot be made; that is logged, nothing
/// is registered, and the application is of no use. Reads and writes the disk;
/// main thread.
bool registerSettings(UserDefaults &defaults, BookmarkStore &store, const std::optional<QList<FolderURL>> &musicFolders);

} // namespace kest
