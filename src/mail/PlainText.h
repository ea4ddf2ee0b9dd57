#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace kest {

/// Largest text file that is taken as a message's text, in bytes.
inline constexpr qint64 largestTextFile = 4 * 1024 * 1024;

/// How long a file may take to be read; a share may never answer.
inline constexpr std::chrono::milliseconds longestTextRead{5000};

/// The characters of a text file, with line feeds as line ends, or nothing when
/// it cannot be read; then `error` says why. Only a regular file is read, and
/// none that is larger than `largestTextFile`: refused by its size, unread.
/// Waits no longer than told.
std::optional<QString> plainTextOfFile(const FileURL &file, Error *error,
                                       std::chrono::milliseconds longestWait = longestTextRead);

/// The characters of a text file's bytes: UTF-8, UTF-16 or UTF-32 by their byte
/// order mark; else UTF-16 when of its two bytes one is always, the other
/// mostly not zero; else UTF-8 when the bytes are valid UTF-8; else Windows-1252,
/// which holds all that is printed in ISO 8859-1. CR LF and CR become LF. NUL,
/// which no mail may hold, becomes U+FFFD. See docs/text-messages.md.
QString plainText(const QByteArray &bytes);

} // namespace kest
