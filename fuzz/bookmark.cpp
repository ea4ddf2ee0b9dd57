// The bytes of a folder's bookmark, as they stand in the settings file.

#include "Target.h"
#include "platform/linux/desktop/FolderBookmark.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto bookmark = kest::FolderBookmark::fromBytes(kest::fuzz::bytesOf(data, size));
    if (!bookmark)
        return 0;
    KEST_MUST(bookmark->path.startsWith('/'));
    const auto again = kest::FolderBookmark::fromBytes(bookmark->toBytes());
    KEST_MUST(again);
    KEST_MUST(again->path == bookmark->path && again->realPath == bookmark->realPath);
    KEST_MUST(again->identity == bookmark->identity);
    return 0;
}
