#pragma once

#include "platform/Trash.h"
#include "platform/linux/desktop/TrashFolder.h"

#include <QByteArray>

#include <optional>

namespace kest {

/// The trash as the freedesktop.org Trash specification 1.0 has it, which the
/// file managers of all desktops read: the person's own trash under
/// XDG_DATA_HOME for what lies on the same file system, else the trash at the
/// top of the file system where the thing lies. Never copies.
///
/// The toolkits' own were measured and left alone: GIO's (2.74) replaces a file
/// that already is in the trash when its note is missing, refuses file systems
/// in memory and names of more than 245 bytes, and linking it costs each start
/// 1.7 ms; Qt's (6.4) moves the file into the working folder when XDG_DATA_HOME
/// does not exist yet.
///
/// Keeps the person's trash open between two calls: most of the time that
/// thousands of recordings take goes into finding it. One thread at a time.
class FreedesktopTrash : public Trash
{
public:
    bool trashItem(const FileURL &atURL, Error *error, FileURL *resultingItemURL = nullptr) override;
    bool putBack(const FileURL &trashedItem, const FileURL &toURL, Error *error) override;

private:
    struct Item;

    QByteArray trash(const QByteArray &path);
    QByteArray putInHomeTrash(const Item &item);

    QByteArray m_homePath; // where m_home lies
    std::optional<TrashFolder> m_home;
};

} // namespace kest
