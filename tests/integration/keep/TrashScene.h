#pragma once

#include "FileProbes.h"
#include "platform/linux/desktop/FreedesktopTrash.h"

#include <QTemporaryDir>

#include <filesystem>
#include <unistd.h>

namespace kest::testing {

/// A throw-away folder of recordings beside a data home that does not exist
/// yet, and the trash that serves them. Sets XDG_DATA_HOME and the working
/// folder.
struct TrashScene {
    TrashScene()
    {
        QDir().mkpath(QFile::decodeName(folder));
        QDir().mkpath(QFile::decodeName(other));
        qputenv("XDG_DATA_HOME", data);
        QDir::setCurrent(dir.path());
    }

    // QTemporaryDir cannot remove names that are not UTF-8.
    ~TrashScene() { std::filesystem::remove_all(root.toStdString()); }
    Q_DISABLE_COPY_MOVE(TrashScene)

    bool trashItem(const QByteArray &path) { return subject.trashItem(FileURL::fromNativePath(path), &error); }

    QTemporaryDir dir;
    QByteArray root = QFile::encodeName(QFileInfo(dir.path()).canonicalFilePath());
    QByteArray folder = root + "/Music/Kest"; ///< Where the recordings lie.
    QByteArray other = root + "/other";       ///< Where another file system can be mounted.
    QByteArray data = root + "/not/yet/share";
    QByteArray trash = data + "/Trash";                                       ///< The person's own.
    QByteArray topTrash = other + "/.Trash-" + QByteArray::number(::getuid()); ///< At the top of `other`.
    FreedesktopTrash subject;
    Error error;
};

} // namespace kest::testing
