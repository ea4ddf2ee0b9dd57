// Clears folders of old recordings as the program does when it ends. One order a line on standard input, tab-separated and
// percent-encoded: the folder, the settings `iWhenToDelete` and `bTrashNotDelete` (0 or 1), how many days later than now it is.
// Says "chosen", clears the folder after one more line and says "done". The trash is under XDG_DATA_HOME.

#include "app/FolderBookmarks.h"
#include "app/OldRecordings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/linux/desktop/FreedesktopTrash.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "platform/linux/desktop/PosixFolderContents.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using namespace kest;

namespace {

void say(const char *word)
{
    std::printf("%s\n", word);
    std::fflush(stdout);
}

void clean(QFile &in, const FolderURL &folder, qint64 choice, bool trashNotDelete, int daysLater)
{
    const QTemporaryDir settings;
    UserDefaults defaults(settings.filePath(QStringLiteral("settings.ini")));
    LinuxBookmarkStore bookmarks;
    const auto bookmark = bookmarks.bookmarkData(folder, nullptr);
    if (!bookmark)
        qFatal("the folder cannot be remembered");
    defaults.registerDefaults({{SettingsKeys::bTrashNotDelete, trashNotDelete},
                               {SettingsKeys::dAudioRecordingFolder, *bookmark}});
    FolderBookmarks folders(defaults, bookmarks);
    PosixFolderContents contents;
    FreedesktopTrash trash;
    say("chosen");
    in.readLine();
    OldRecordings(folders, defaults, contents, trash)
        .deleteOldFilesChoice(choice, FileTime(std::chrono::system_clock::now()) + std::chrono::hours(24) * daysLater);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return 1;
    for (QByteArray line = in.readLine(); !line.isEmpty(); line = in.readLine()) {
        const QByteArrayList words = line.trimmed().split('\t');
        clean(in, FileURL::fromNativePath(QByteArray::fromPercentEncoding(words.value(0))), words.value(1).toLongLong(),
              words.value(2) == "1", words.value(3).toInt());
        say("done");
    }
    return 0;
}
