#include "platform/linux/desktop/LinuxBookmarkStore.h"

#include "platform/FileDescriptor.h"
#include "platform/linux/desktop/FolderBookmark.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 900ms; // the search, and what the system may need besides

template<typename Value> using Outcome = BoundedLookUps::Outcome<Value>;

QByteArray parentOf(const QByteArray &path)
{
    return FileURL::fromNativePath(path).deletingLastPathComponent().nativePath();
}

QList<QByteArray> rootsNear(const FolderBookmark &bookmark, const QByteArray &home)
{
    QList<QByteArray> roots;
    const auto add = [&roots](const QByteArray &root) {
        if (root != "/" && !root.isEmpty() && !roots.contains(root))
            roots.append(root);
    };
    add(parentOf(bookmark.path));
    for (QByteArray folder = parentOf(bookmark.realPath); folder.size() > 1; folder = parentOf(folder))
        add(folder);
    roots.removeOne(home);
    add(home);
    return roots;
}

Outcome<QByteArray> makeBookmark(const QByteArray &path)
{
    const auto identity = FolderIdentity::ofFolder(path);
    if (!identity)
        return { {}, errno };
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return { FolderBookmark { path, real ? QByteArray(real.get()) : path, *identity }.toBytes() };
}

/// Whether it, and every link on the way to it, is this person's or the system's. A folder that others share might
/// otherwise be swapped for one that they read, or for a link to a folder whose recordings would be cleaned up.
bool isOfOurMaking(const QByteArray &path)
{
    const auto isTrusted = [](const struct stat &status) { return status.st_uid == ::geteuid() || status.st_uid == 0; };
    struct stat status = {};
    for (qsizetype slash = path.indexOf('/', 1); slash > 0; slash = path.indexOf('/', slash + 1)) {
        if (::lstat(path.left(slash).constData(), &status) != 0 || (S_ISLNK(status.st_mode) && !isTrusted(status)))
            return false;
    }
    return ::lstat(path.constData(), &status) == 0 && isTrusted(status)
        && ::stat(path.constData(), &status) == 0 && isTrusted(status);
}

Outcome<BookmarkStore::Resolved> resolve(const FolderBookmark &bookmark, const QByteArray &home, const SearchBounds &bounds)
{
    const FolderURL old = FolderURL::fromNativePath(bookmark.path);
    const auto there = FolderIdentity::ofFolder(bookmark.path);
    const int errorNumber = there ? 0 : errno;
    if (there && there->isSameFolder(bookmark.identity))
        return { BookmarkStore::Resolved { old, there->device != bookmark.identity.device } };
    if (const auto moved = findFolder(bookmark.identity, rootsNear(bookmark, home), bounds))
        return { BookmarkStore::Resolved { FolderURL::fromNativePath(*moved), true } };
    if (!there)
        return { {}, errorNumber };
    if (!isOfOurMaking(bookmark.path))
        return { {}, EPERM };
    return { BookmarkStore::Resolved { old, true } };
}

/// Reached by way of its descriptor.
class OpenFolder : public HeldFolder
{
public:
    explicit OpenFolder(FileDescriptor folder) : HeldFolder(FolderURL::fromNativePath(pathOf(folder))), m_folder(std::move(folder))
    {
    }

    static QByteArray pathOf(const FileDescriptor &folder) { return "/proc/self/fd/" + QByteArray::number(folder.get()); }

private:
    const FileDescriptor m_folder;
};

Outcome<FileDescriptor> openSame(const QByteArray &path, const FolderIdentity &identity)
{
    FileDescriptor folder(::open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto opened = folder.isOpen() ? FolderIdentity::ofFolder(OpenFolder::pathOf(folder)) : std::nullopt;
    if (!opened)
        return { {}, errno };
    if (!opened->isSameFolder(identity))
        return { {}, ENOENT };
    return { std::move(folder) };
}

} // namespace

LinuxBookmarkStore::LinuxBookmarkStore(SearchBounds bounds) : m_bounds(bounds), m_lookUps(longestWait)
{
}

std::optional<QByteArray> LinuxBookmarkStore::bookmarkData(const FolderURL &folder, Error *error)
{
    const QByteArray path = folder.nativePath();
    auto outcome = m_lookUps.run(path, [path] { return makeBookmark(path); });
    if (!outcome.value)
        handBack(error, posixError(outcome.errorNumber, folder.displayPath()));
    return outcome.value;
}

std::optional<BookmarkStore::Resolved> LinuxBookmarkStore::resolveBookmarkData(const QByteArray &data, Error *error)
{
    const auto bookmark = FolderBookmark::fromBytes(data);
    if (!bookmark) {
        handBack(error, posixError(EINVAL, QStringLiteral("bookmark")));
        return {};
    }
    const QByteArray home = FolderURL::fromNativePath(qgetenv("HOME")).nativePath();
    const auto work = [bookmark = *bookmark, home, bounds = m_bounds] { return resolve(bookmark, home, bounds); };
    auto outcome = m_lookUps.run(bookmark->path, work);
    if (!outcome.value)
        handBack(error, posixError(outcome.errorNumber, FolderURL::fromNativePath(bookmark->path).displayPath()));
    return outcome.value;
}

std::unique_ptr<HeldFolder> LinuxBookmarkStore::hold(const FolderURL &folder, const QByteArray &data)
{
    const auto bookmark = FolderBookmark::fromBytes(data);
    if (!bookmark)
        return nullptr;
    const QByteArray path = folder.nativePath();
    auto outcome = m_lookUps.run(path, [path, identity = bookmark->identity] { return openSame(path, identity); });
    return outcome.value ? std::make_unique<OpenFolder>(std::move(*outcome.value)) : nullptr;
}

} // namespace kest
