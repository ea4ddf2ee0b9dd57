#pragma once

#include <QByteArray>

namespace kest {

/// Where Kest keeps what it must remember beside the settings: `kest` under
/// XDG_STATE_HOME (XDG Base Directory Specification). Native path, always
/// absolute; may not exist yet. QStandardPaths knows no such place before Qt 6.7.
QByteArray stateFolder();

/// The list of recordings that are not finished yet lies here, in the state
/// folder; the first recording makes it.
QByteArray unfinishedRecordingsFolder();

/// Makes a folder (native path, absolute) and its missing parents, open to
/// nobody else. True when something of that name is there afterwards; else
/// errno says why not.
bool makePrivateFolder(const QByteArray &path);

} // namespace kest
