#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace kest {

/// Largest text file that is taken as a message's text, in bytes.
inline constexpr qint64 largestTextFile = 4 * 1024 * 1024;

/// The characters of a text file, with line feeds as line ends, or nothing when
/// it cannot be read; then `error` says why.
std::optional<QString> plainTextOfFile(const FileURL &file, Error *error);

/// The characters of a text file's bytes: UTF-16 or UTF-8 by their byte order
/// mark; else UTF-8 when the bytes are valid UTF-8; else UTF-16 when every
/// second byte of much of it is zero; else ISO 8859-1. CR LF and CR become LF.
QString plainText(const QByteArray &bytes);

} // namespace kest
