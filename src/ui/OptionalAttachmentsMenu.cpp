#include "ui/OptionalAttachmentsMenu.h"

#include "ui/controls/PullDownMenu.h"

#include <QCoreApplication>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace kest {

namespace {

struct CloseDirectory {
    void operator()(DIR *directory) const { ::closedir(directory); }
};

// Most file systems tell the kind with the name; a look at each file would take longer than all the rest.
bool isRegularFile(DIR *directory, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_REG;
    struct stat status = {};
    return ::fstatat(::dirfd(directory), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode);
}

QList<PullDownItem> itemsOf(const QStringList &names, const QString &chosenName)
{
    QList<PullDownItem> items;
    items.reserve(names.size());
    for (const QString &name : names)
        items.append({titleFromFileName(name), !chosenName.isNull() && name == chosenName});
    return items;
}

} // namespace

BoundedLookUps::Outcome<QStringList> regularFilesIn(const FolderURL &folder)
{
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(folder.nativePath().constData()));
    if (!directory)
        return {{}, errno};
    QStringList names;
    while (const dirent *entry = ::readdir(directory.get())) {
        if (entry->d_name[0] != '.' && isRegularFile(directory.get(), *entry))
            names.append(FileURL::fromNativePath(QByteArray("/") + entry->d_name).lastPathComponent());
    }
    return {names};
}

int fillOptionalAttachmentsMenu(PullDownMenu &menu, const std::optional<FolderURL> &folder, const QString &chosenName,
                                BoundedLookUps &lookUps)
{
    if (!folder) {
        const QString title = QCoreApplication::translate("kest", "No optional outgoing messages folder set");
        menu.setItems({{title, false, false}});
        return 0;
    }
    folder->startAccessingSecurityScopedResource();
    const auto files = lookUps.run(folder->nativePath(), [folder = *folder] { return regularFilesIn(folder); });
    folder->stopAccessingSecurityScopedResource();
    menu.setItems(itemsOf(files.value.value_or(QStringList()), chosenName));
    return files.value ? 0 : files.errorNumber;
}

QString titleFromFileName(const QString &name)
{
    return QString(name).replace(u':', u'/');
}

QString fileNameFromTitle(const QString &title)
{
    return QString(title).replace(u'/', u':');
}

} // namespace kest
