#include "app/DefaultFolders.h"

#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"
#include "platform/Error.h"

#include <QLoggingCategory>
#include <QStandardPaths>

#include <filesystem>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcStart, "kest.start")

const QString recordingsName = QStringLiteral("Kest");
const QString attachmentsName = QStringLiteral("Kest Optional Outgoing Messages");

bool createDirectory(const FolderURL &folder, Error *error)
{
    std::error_code code;
    std::filesystem::create_directories(folder.nativePath().toStdString(), code);
    if (code)
        handBack(error, posixError(code.value(), folder.displayPath()));
    return !code;
}

bool logFailure(const char *doing, const QString &name, const Error &error)
{
    qCCritical(lcStart, "Error %s ~/Music/%s : %s", doing, qUtf8Printable(name), qUtf8Printable(logText(error)));
    return false;
}

} // namespace

std::optional<QList<FolderURL>> musicFolders()
{
    QList<FolderURL> folders;
    for (const QString &path : QStandardPaths::standardLocations(QStandardPaths::MusicLocation))
        folders.append(FolderURL::fromPath(path));
    return folders.isEmpty() ? std::nullopt : std::optional(folders);
}

bool registerSettings(UserDefaults &defaults, BookmarkStore &store, const std::optional<QList<FolderURL>> &musicFolders)
{
    if (!musicFolders || musicFolders->isEmpty()) {
        qCCritical(lcStart, "Error finding Music URL");
        return false;
    }
    const FolderURL recordings = musicFolders->first().appendingPathComponent(recordingsName);
    const FolderURL attachments = musicFolders->first().appendingPathComponent(attachmentsName);
    Error error;
    if (!createDirectory(recordings, &error))
        return logFailure("creating", recordingsName, error);
    if (!createDirectory(attachments, &error))
        return logFailure("creating", attachmentsName, error);
    const auto recordingsBookmark = store.bookmarkData(recordings, &error);
    if (!recordingsBookmark)
        return logFailure("storing", recordingsName, error);
    const auto attachmentsBookmark = store.bookmarkData(attachments, &error);
    if (!attachmentsBookmark)
        return logFailure("storing", attachmentsName, error);
    defaults.registerDefaults(defaultsToRegister(*recordingsBookmark, *attachmentsBookmark));
    return true;
}

} // namespace kest
