#pragma once

#include "platform/FileURL.h"

namespace kest {

/// Where the open file or folder behind `file` is now, whoever renamed or moved
/// it. Empty when it was deleted, or no path leads to it. A name under which a
/// file system only keeps a deleted file until it is closed does not count.
FileURL pathOfOpenFile(int file);

} // namespace kest
