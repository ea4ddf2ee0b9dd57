#include "platform/linux/sound/RecordingRecovery.h"

#include "platform/linux/sound/RecordingFinisher.h"

#include <QLoggingCategory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(logRecovery, "kest.recovery")

constexpr int mostDaysAway = 90;
constexpr int mostEntriesLookedAt = 20'000; // over all folders

bool exists(const FolderURL &folder)
{
    struct stat status = {};
    return stat(folder.nativePath().constData(), &status) == 0;
}

bool isEmpty(const RecordingFile &file)
{
    struct stat status = {};
    return fstat(file.descriptor(), &status) == 0 && status.st_size == 0;
}

/// The search for one file by its inode.
struct Looking {
    int budget = mostEntriesLookedAt;
    bool sawAll = true; ///< False once something could not be looked at.
    bool closedCounts = true; ///< Whether a folder that is closed to us could have been one to look at.
};

bool isClosedToUs(int error)
{
    return error == EACCES || error == EPERM || error == ENOTCONN; // the last of a FUSE file system whose server is gone
}

/// Null when there is none or it cannot be read.
DIR *openListing(const FolderURL &folder, Looking *looking)
{
    DIR *listing = opendir(folder.nativePath().constData());
    if (!listing && errno != ENOENT && errno != ENOTDIR && (looking->closedCounts || !isClosedToUs(errno)))
        looking->sawAll = false;
    return listing;
}

/// The regular file with this inode in `folder`, whatever its name; empty when there is none.
FileURL fileWithInode(const FolderURL &folder, quint64 inode, Looking *looking)
{
    DIR *listing = openListing(folder, looking);
    FileURL found;
    while (const dirent *entry = listing ? readdir(listing) : nullptr) {
        if (--looking->budget < 0) {
            looking->sawAll = false;
            break;
        }
        if (entry->d_ino == inode && (entry->d_type == DT_REG || entry->d_type == DT_UNKNOWN)) {
            found = folder.appendingNativePathComponent(entry->d_name);
            break;
        }
    }
    if (listing)
        closedir(listing);
    return found;
}

QList<FolderURL> foldersIn(const FolderURL &parent, Looking *looking)
{
    QList<FolderURL> found;
    DIR *listing = openListing(parent, looking);
    while (const dirent *entry = listing ? readdir(listing) : nullptr) {
        const QByteArray name = entry->d_name;
        if ((entry->d_type == DT_DIR || entry->d_type == DT_UNKNOWN) && name != "." && name != "..")
            found.append(parent.appendingNativePathComponent(name));
    }
    if (listing)
        closedir(listing);
    return found;
}

bool isOurs(const RecordingFile &file, const RecordingJournal::Entry &entry)
{
    return isEmpty(file) || (file.inode() == entry.inode() && file.birthTime() == entry.birthTime());
}

/// What has been found of an entry's recording.
struct Search {
    std::optional<RecordingFile> file;
    bool certain = true; ///< False: something that may be the file could not be looked at.
};

bool lookIn(const QList<FolderURL> &places, const RecordingJournal::Entry &entry, Looking *looking, Search *search)
{
    for (const FolderURL &place : places) {
        const FileURL found = fileWithInode(place, entry.inode(), looking);
        if (found.isEmpty() || found.pathExtension() != entry.file().pathExtension())
            continue;
        FileFailure failure;
        auto file = RecordingFile::open(found, &failure);
        // Unreadable, it may be the one: then finishing is tried later.
        if (file && file->birthTime() == entry.birthTime() && isFragmented(file->descriptor()) != false) {
            search->file = std::move(file);
            return true;
        }
        search->certain = search->certain && (file || failure.errorNumber == ENOENT);
    }
    return false;
}

Search find(const RecordingJournal::Entry &entry, const QList<FolderURL> &recordingFolders)
{
    FileFailure failure;
    // Under its old name it is taken whatever its inode: it may have come back from a backup.
    if (auto file = RecordingFile::open(entry.file(), &failure))
        return {std::move(file)};
    Search search = {std::nullopt, failure.errorNumber == ENOENT};
    if (entry.birthTime() == 0)
        return search; // an inode alone may be anybody's by now
    Looking looking;
    const FolderURL folder = entry.file().deletingLastPathComponent();
    // Renamed in its folder; in the folder of today's recordings; or with its folder, which got another name.
    if (lookIn(QList<FolderURL>{folder} + recordingFolders, entry, &looking, &search))
        return search;
    looking.closedCounts = false; // a lost+found is no folder of recordings
    lookIn(foldersIn(folder.deletingLastPathComponent(), &looking), entry, &looking, &search);
    search.certain = search.certain && (search.file || looking.sawAll);
    return search;
}

/// An empty file that was made after the announcement is the announced one;
/// anything else is not known to be, and stays.
void removeIfNothingCameOf(const RecordingJournal::Entry &entry)
{
    FileFailure failure;
    auto file = RecordingFile::open(entry.file(), &failure);
    if (file && isEmpty(*file) && file->birthTime() >= entry.writtenAt())
        file->remove();
}

/// What was hidden beside the recording when the program was killed. A whole copy of one that is nowhere else may be all that
/// is left of it: the file system lost the rest, or it was saved from a deleted file. False when such a one stays hidden, or
/// one of which that cannot be told now.
bool clearHidden(const RecordingJournal::Entry &entry, bool keepWhole)
{
    const QByteArray path = entry.file().deletingLastPathComponent().nativePath();
    const FileDescriptor folder(open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() || entry.isOnlyAnnounced())
        return true;
    bool cleared = true;
    for (const RecordingReplacement &left : RecordingReplacement::leftIn(folder.get(), entry.inode())) {
        const auto isWhole = isWholeAndFinished(left.descriptor());
        if (!keepWhole || isWhole == false)
            left.remove();
        else if (!isWhole || left.renameToFree(folder.get(), entry.file().nativeLastPathComponent()).isEmpty())
            cleared = false;
    }
    return cleared;
}

} // namespace

RecordingRecovery::RecordingRecovery(QList<FolderURL> folders) : m_folders(std::move(folders)) { }

void RecordingRecovery::finish(std::vector<std::unique_ptr<RecordingJournal::Entry>> entries)
{
    for (const auto &entry : entries) {
        const Outcome outcome = finishOne(*entry);
        if (outcome == Outcome::TryAgainLater)
            continue;
        if (clearHidden(*entry, outcome == Outcome::NothingToFinish) || entry->ageInDays() > mostDaysAway)
            entry->done();
    }
}

RecordingRecovery::Outcome RecordingRecovery::finishOne(const RecordingJournal::Entry &entry)
{
    if (entry.isOnlyAnnounced()) {
        removeIfNothingCameOf(entry);
        return Outcome::NothingToFinish;
    }
    auto [file, certain] = find(entry, m_folders);
    if (!file) {
        // With its folder there, the recording was deleted; without, its disk may only be away, for a while.
        const bool deleted = certain && exists(entry.file().deletingLastPathComponent());
        return deleted || entry.ageInDays() > mostDaysAway ? Outcome::NothingToFinish : Outcome::TryAgainLater;
    }
    const std::optional<bool> unfinished = isFragmented(file->descriptor());
    if (!unfinished)
        return Outcome::TryAgainLater;
    if (!*unfinished) {
        if (isOurs(*file, entry) && !mayHoldSound(file->descriptor()))
            file->remove(); // ended before anything was heard
        return Outcome::NothingToFinish;
    }
    const auto failure = finishRecording(*file, std::nullopt);
    if (!failure)
        return Outcome::Finished;
    qCWarning(logRecovery, "A recording stays unfinished: %ls", qUtf16Printable(failure->detail));
    return Outcome::TryAgainLater;
}

} // namespace kest
