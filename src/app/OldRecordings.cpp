#include "app/OldRecordings.h"

#include "app/FolderBookmarks.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/HeldFolder.h"
#include "platform/Trash.h"

#include <QLoggingCategory>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcOldRecordings, "kest.oldrecordings")

} // namespace

FileTime cutOffForOldRecordings(qint64 choice, FileTime now)
{
    using namespace std::chrono_literals;
    constexpr auto day = 24h;
    switch (choice) {
    case 1: return now - day;
    case 2: return now - 7 * day;
    case 3: return now - 30 * day;
    default: return now + 1s; // deliberate: an unknown choice takes everything
    }
}

bool isOldRecording(const FolderEntry &entry, FileTime cutOff)
{
    if (entry.nativeName.startsWith('.') || !entry.creationDate || !(*entry.creationDate < cutOff))
        return false;
    const FileURL name = FileURL::fromNativePath('/' + entry.nativeName);
    return name.pathExtension() == QLatin1String("m4a");
}

OldRecordings::OldRecordings(FolderBookmarks &folders, const UserDefaults &defaults, FolderContents &contents,
                             Trash &trash)
    : m_folders(folders), m_defaults(defaults), m_contents(contents), m_trash(trash)
{
}

void OldRecordings::deleteOldFilesChoice(qint64 choice, FileTime now)
{
    Error error;
    // Held: what is listed in it is not to be removed from another folder that takes its place meanwhile.
    const auto folder = m_folders.heldRecordingsDirectory(&error);
    if (!folder) {
        qCWarning(lcOldRecordings, "Could not delete old recordings: %s", qUtf8Printable(logText(error)));
        return;
    }
    const FileTime cutOff = cutOffForOldRecordings(choice, now);
    const bool trashNotDelete = m_defaults.boolForKey(SettingsKeys::bTrashNotDelete);
    folder->url().startAccessingSecurityScopedResource();
    for (const FolderEntry &entry : m_contents.contentsOfDirectory(folder->url(), nullptr)) {
        if (isOldRecording(entry, cutOff))
            remove(folder->url().appendingNativePathComponent(entry.nativeName), trashNotDelete);
    }
    folder->url().stopAccessingSecurityScopedResource();
}

// No error slot: what cannot be removed stays, silently by design.
void OldRecordings::remove(const FileURL &recording, bool trashNotDelete)
{
    if (trashNotDelete)
        m_trash.trashItem(recording, nullptr);
    else
        m_contents.removeItem(recording, nullptr);
}

} // namespace kest
