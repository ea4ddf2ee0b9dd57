#pragma once

#include "platform/FileDescriptor.h"
#include "platform/linux/sound/FileFailure.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace kest {

/// The finished copy of a recording: a hidden file until it gets the
/// recording's name. It stays where it is when the object goes.
class RecordingReplacement
{
public:
    /// Makes an empty one in the open `folder`, for the recording with that
    /// inode: a new file that is the person's alone. Null on failure.
    static std::optional<RecordingReplacement> create(int folder, quint64 inode, FileFailure *failure);

    /// What a killed program left in the open `folder` for the recording with
    /// that inode. One that cannot be opened has no descriptor.
    static std::vector<RecordingReplacement> leftIn(int folder, quint64 inode);

    int descriptor() const { return m_file.get(); }

    /// Whether it is still there under its hidden name.
    bool isHidden() const;

    /// Written: gives it the rights and times of the open `recording`, and has it
    /// on the disk.
    std::optional<FileFailure> complete(int recording) const;

    /// Takes the place of what has that name in the open `folder`, if anything
    /// has. False, with errno set, when it is still hidden.
    bool renameOver(int folder, const QByteArray &name) const;

    /// See renameToFree.
    QByteArray renameToFree(int folder, const QByteArray &wanted) const;

    void remove() const;

private:
    RecordingReplacement() = default;

    FileDescriptor m_folder;
    FileDescriptor m_file;
    QByteArray m_name;
};

} // namespace kest
