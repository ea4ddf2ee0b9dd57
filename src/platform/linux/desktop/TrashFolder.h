#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>

#include <optional>

namespace kest {

/// One trash folder as the freedesktop.org Trash specification 1.0 lays it out:
/// `files/` holds what was trashed, `info/` a note on each where it came from.
///
/// An object means that both are there and may be written. All calls go through
/// open folders, so that nobody can swap a link in between.
class TrashFolder
{
public:
    /// The person's own trash at `path`, made when it is missing. Nothing when
    /// it cannot be made; errno says why.
    static std::optional<TrashFolder> home(const QByteArray &path);

    /// The trash of the user `uid` on the file system mounted at `top`:
    /// `.Trash/uid` where an administrator set `.Trash` up properly (a real
    /// folder with the sticky bit). Nothing when there is none; errno says why.
    static std::optional<TrashFolder> administrators(const QByteArray &top, unsigned uid);

    /// As above, `.Trash-uid`, made when it is missing. Nothing when it cannot
    /// be made, is a link or belongs to somebody else; errno says why.
    static std::optional<TrashFolder> own(const QByteArray &top, unsigned uid);

    /// Moves the entry `name` of the open folder `from` in here. `originalPath`
    /// goes into the note: absolute, or relative to the top of the file system.
    /// Where it lies then; empty when it could not be moved: then it is where it
    /// was and errno says why.
    QByteArray put(const FileDescriptor &from, const QByteArray &name, const QByteArray &originalPath);

    /// Takes away the note on what lay at `path` in a trash. A note that stays
    /// does no harm, so nothing is told.
    static void removeNote(const QByteArray &path);

private:
    static std::optional<TrashFolder> opened(const QByteArray &path, FileDescriptor base);

    bool writeNote(const QByteArray &name, const QByteArray &originalPath);
    bool moveIn(const FileDescriptor &from, const QByteArray &name, const QByteArray &as);

    QByteArray m_path;
    FileDescriptor m_files;
    FileDescriptor m_info;
};

} // namespace kest
