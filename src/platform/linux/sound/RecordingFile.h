#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileURL.h"
#include "platform/linux/sound/FileFailure.h"
#include "platform/linux/sound/RecordingReplacement.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace kest {

/// The file of one recording, held open with its folder, so that it stays the
/// same file while folders are moved or renamed under it, and can be read when
/// it was deleted.
///
/// Moves between threads as a whole; used by one at a time.
class RecordingFile
{
public:
    /// Makes a new file. When the name is taken, one like it is made ("name
    /// 2.m4a"): a recording never overwrites anything. `announce` is called with
    /// each name just before it is tried.
    static std::optional<RecordingFile> create(const FileURL &wanted, FileFailure *failure,
                                               const std::function<void(const FileURL &file)> &announce = {});

    /// Opens one that an earlier run left.
    static std::optional<RecordingFile> open(const FileURL &file, FileFailure *failure);

    int descriptor() const { return m_file.get(); }

    /// Where it was made or opened, or where `locate` last found it.
    const FileURL &url() const { return m_url; }

    quint64 device() const { return m_device; }
    quint64 inode() const { return m_inode; }

    /// Bytes; 0 when the file system does not say.
    qint64 size() const;

    /// When the file was made, in nanoseconds since 1970: with the inode it
    /// tells this file from a later one that got its inode. 0 where the file
    /// system does not say.
    qint64 birthTime() const;

    /// The file's present name in its present folder; follows both when they
    /// were renamed meanwhile. False when the file was deleted.
    bool locate();

    /// For a file that was deleted: that folder is the one that it was in.
    /// False when it was, or when it cannot be opened; then with errno set.
    bool saveIn(const FolderURL &folder);

    /// An empty one beside this file. Where the folder is gone too, it is made
    /// again. Null on failure.
    std::optional<RecordingReplacement> createReplacement(FileFailure *failure);

    /// Puts the written replacement in place of this file, wherever that is by
    /// now, so that at every moment, power cuts included, one of the two is there
    /// whole. When the file is gone the replacement gets its name, or the next
    /// free one: see `url`. A recording that somebody deletes while it is
    /// finished so comes back: rather that than one that is lost. After a failure
    /// the replacement is removed, unless nothing else is left of the recording.
    std::optional<FileFailure> replace(const RecordingReplacement &replacement);

    /// Takes the file away.
    void remove();

    /// Remembers the process's umask, while it is still the person's own:
    /// libpulse changes it for moments on its own thread, and a file made in
    /// such a moment would be closed to everybody else.
    static void rememberUmask();

private:
    RecordingFile() = default;

    bool isHere() const;
    bool isAt(const FileURL &file) const;
    bool locateFolder();
    std::optional<FileFailure> notReplaced(const RecordingReplacement &replacement, const FileFailure &failure);
    std::optional<FileFailure> addBeside(const RecordingReplacement &replacement);

    FileURL m_url;
    FileDescriptor m_folder;
    FileDescriptor m_file;
    QByteArray m_name;
    quint64 m_device = 0;
    quint64 m_inode = 0;
};

} // namespace kest
