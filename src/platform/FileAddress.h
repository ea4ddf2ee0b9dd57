#pragma once

#include "platform/FileURL.h"

#include <QUrl>

namespace kest {

/// The "file:" address of a location, byte for byte also where its path is not
/// UTF-8.
QUrl addressOf(const FileURL &file);

/// The location that a "file:" address names; empty when it names none on this
/// machine.
FileURL fileAt(const QUrl &address);

} // namespace kest
