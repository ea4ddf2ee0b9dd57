#include "ui/OptionalAttachmentsMenu.h"

#include <QCoreApplication>
#include <QMenu>

#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace kest {

namespace {

struct CloseDirectory {
    void operator()(DIR *directory) const { ::closedir(directory); }
};

bool isRegularFile(const FileURL &file)
{
    // Not followed: a link is no regular file.
    struct stat status = {};
    return ::lstat(file.nativePath().constData(), &status) == 0 && S_ISREG(status.st_mode);
}

QList<FileURL> visibleEntries(const FolderURL &folder)
{
    QList<FileURL> entries;
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(folder.nativePath().constData()));
    while (const dirent *entry = directory ? ::readdir(directory.get()) : nullptr) {
        if (entry->d_name[0] != '.')
            entries.append(folder.appendingNativePathComponent(entry->d_name));
    }
    return entries;
}

QAction *addItem(QMenu &menu, const QString &title)
{
    // A single "&" would mark a letter to press.
    QAction *item = menu.addAction(QString(title).replace(u'&', QStringLiteral("&&")));
    item->setData(title);
    return item;
}

QAction *itemWithTitle(const QMenu &menu, const QString &title)
{
    const QList<QAction *> items = menu.actions();
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [&](const QAction *item) { return attachmentTitle(*item) == title; });
    return found == items.cend() ? nullptr : *found;
}

} // namespace

void fillOptionalAttachmentsMenu(QMenu &menu, const std::optional<FolderURL> &folder, const QString &chosenName)
{
    const QList<QAction *> old = menu.actions();
    for (qsizetype position = old.size() - 1; position >= 1; --position)
        delete old[position];
    if (!folder) {
        addItem(menu, QCoreApplication::translate("kest", "No optional outgoing messages folder set"))
            ->setEnabled(false);
        return;
    }
    folder->startAccessingSecurityScopedResource();
    const QList<FileURL> entries = visibleEntries(*folder);
    folder->stopAccessingSecurityScopedResource();
    for (const FileURL &entry : entries) {
        if (!isRegularFile(entry))
            continue;
        const QString name = entry.lastPathComponent();
        addItem(menu, titleFromFileName(name))->setCheckable(true);
        if (name == chosenName)
            itemWithTitle(menu, titleFromFileName(name))->setChecked(true);
    }
}

QString titleFromFileName(const QString &name)
{
    return QString(name).replace(u':', u'/');
}

QString fileNameFromTitle(const QString &title)
{
    return QString(title).replace(u'/', u':');
}

QString attachmentTitle(const QAction &item)
{
    return item.data().toString();
}

} // namespace kest
