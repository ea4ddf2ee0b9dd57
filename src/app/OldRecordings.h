#pragma once

#include "platform/FolderContents.h"

namespace kest {

class FolderBookmarks;
class Trash;
class UserDefaults;

/// The moment before which recordings count as old, `choice` being the value
/// of `iWhenToDelete`: 1 a day, 2 seven days, 3 thirty days before `now`. Any
/// other choice means all recordings and gives one second after `now`, so that
/// one made a moment ago counts too; 0 ("never") is not for asking.
FileTime cutOffForOldRecordings(qint64 choice, FileTime now);

/// Whether the entry of the recordings folder is an old recording: not hidden,
/// named with the extension "m4a" (exactly so: "M4A" is none), made strictly
/// before `cutOff`. An entry without a creation date never is. The kind of
/// entry plays no part.
bool isOldRecording(const FolderEntry &entry, FileTime cutOff);

/// Clears the recordings folder of old recordings when the application quits.
///
/// Main thread. Blocks until done: one change of name (trash) or one unlink
/// (delete) for each recording, and never a copy.
class OldRecordings
{
public:
    /// All must outlive this object.
    OldRecordings(FolderBookmarks &folders, const UserDefaults &defaults, FolderContents &contents, Trash &trash);

    /// Moves all old recordings to the trash, or deletes them for good when
    /// `bTrashNotDelete` is off. `choice` as in `cutOffForOldRecordings`, `now`
    /// by the system's clock.
    ///
    /// Without a recordings folder it logs so and does nothing. A folder that
    /// cannot be read counts as empty, and an entry that cannot be moved or
    /// deleted stays; both silently, by design: the application is quitting.
    void deleteOldFilesChoice(qint64 choice, FileTime now = std::chrono::system_clock::now());

private:
    void remove(const FileURL &recording, bool trashNotDelete);

    FolderBookmarks &m_folders;
    const UserDefaults &m_defaults;
    FolderContents &m_contents;
    Trash &m_trash;
};

} // namespace kest
