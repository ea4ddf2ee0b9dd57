#pragma once

#include "platform/BoundedLookUps.h"
#include "platform/FileURL.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kest {

class PullDownMenu;

/// Fills the menu of prepared messages: its first item stays, every later one
/// is replaced by the regular, visible files of `folder`, in the order in which
/// the file system lists them. The item of `chosenName` (null: none) is checked.
/// Without a folder there is one item that says so and cannot be chosen.
/// Entries, or a whole folder, that cannot be read are left out silently, and a
/// folder that does not answer in time counts as one that cannot be read.
///
/// Returns 0, or the errno of a folder that could not be read (ETIMEDOUT: it
/// did not answer), for who wants to say more than the menu does.
int fillOptionalAttachmentsMenu(PullDownMenu &menu, const std::optional<FolderURL> &folder, const QString &chosenName,
                                BoundedLookUps &lookUps);

/// The names, as `FileURL::path()` writes them, of what lies directly in
/// `folder`, is a regular file (a link is none) and is not hidden; or an errno.
/// Any thread. Waits as long as the file system does.
BoundedLookUps::Outcome<QStringList> regularFilesIn(const FolderURL &folder);

/// A file's name for people, and back: ":" shows as "/". A file's name never
/// holds a "/", so the way back is exact.
QString titleFromFileName(const QString &name);
QString fileNameFromTitle(const QString &title);

} // namespace kest
