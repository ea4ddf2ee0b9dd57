#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <optional>

namespace kest {

/// What the window and the sheet may ask of the application: where its two
/// folders are.
class ApplicationDelegate
{
public:
    virtual ~ApplicationDelegate() = default;

    /// The recordings folder, or nothing; then `error` says why.
    virtual std::optional<FolderURL> recordingsDirectoryURLWithError(Error *error) = 0;

    /// The folder of prepared messages, or nothing; then `error` says why.
    virtual std::optional<FolderURL> attachmentsDirectoryURLWithError(Error *error) = 0;
};

} // namespace kest
