#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QByteArray>

#include <chrono>
#include <optional>
#include <vector>

namespace kest {

/// A moment as file systems keep it.
using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// One entry of a folder, of any kind. A symbolic link is described itself,
/// not what it points to.
struct FolderEntry {
    QByteArray nativeName;                ///< In the file system's own bytes.
    std::optional<FileTime> creationDate; ///< Nothing where the file system keeps none, or it cannot be read.
};

/// Reads folders, and moves and removes what is in them.
class FolderContents
{
public:
    virtual ~FolderContents() = default;

    /// What lies directly in `folder`, in the order of the file system, without
    /// hidden entries (those whose name begins with a dot). Empty when the
    /// folder cannot be read; then `error`, which may be null, says why.
    virtual std::vector<FolderEntry> contentsOfDirectory(const FolderURL &folder, Error *error) = 0;

    /// Deletes `atURL` for good, a folder with all that is in it. A symbolic
    /// link is deleted itself and never followed, inside a folder too. False
    /// when something of it is left; `error` may be null.
    virtual bool removeItem(const FileURL &atURL, Error *error) = 0;

    /// Gives the file `atURL` the name and place `toURL`, on the same file
    /// system. Never replaces anything: false, with everything as it was, when
    /// something bears that name already, its folder does not exist, or the
    /// move is not possible for another reason; `error` may be null.
    virtual bool moveItem(const FileURL &atURL, const FileURL &toURL, Error *error) = 0;
};

} // namespace kest
