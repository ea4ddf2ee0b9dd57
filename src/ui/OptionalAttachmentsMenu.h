#pragma once

#include "platform/FileURL.h"

#include <QString>

#include <optional>

class QAction;
class QMenu;

namespace kest {

/// Fills the menu of prepared messages: its first item stays, every later one
/// is replaced by the regular, visible files of `folder`, in the order in which
/// the file system lists them. The item of `chosenName` (null: none) is checked.
/// Without a folder there is one item that says so and cannot be chosen.
/// Entries, or a whole folder, that cannot be read are left out silently.
void fillOptionalAttachmentsMenu(QMenu &menu, const std::optional<FolderURL> &folder, const QString &chosenName);

/// A file's name for people, and back: ":" shows as "/". A file's name never
/// holds a "/", so the way back is exact.
QString titleFromFileName(const QString &name);
QString fileNameFromTitle(const QString &title);

/// The title of an item of the menu, as it was given.
QString attachmentTitle(const QAction &item);

} // namespace kest
