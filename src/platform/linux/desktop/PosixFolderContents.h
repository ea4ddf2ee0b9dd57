#pragma once

#include "platform/FolderContents.h"

namespace kest {

/// Folders by way of readdir and statx.
///
/// The creation date is statx's birth time. File systems without one (NFS 3,
/// ext4 with 128-byte inodes, some in user space) give no date at all; the
/// times that they do keep change with every copy or touch and are never taken
/// in its place. A birth time of exactly 1970-01-01 00:00:00, which some
/// drivers report for "unknown", counts as none too.
///
/// Any thread.
class PosixFolderContents : public FolderContents
{
public:
    std::vector<FolderEntry> contentsOfDirectory(const FolderURL &folder, Error *error) override;
    bool removeItem(const FileURL &atURL, Error *error) override;
    bool moveItem(const FileURL &atURL, const FileURL &toURL, Error *error) override;
};

} // namespace kest
