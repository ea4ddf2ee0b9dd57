#include "platform/linux/desktop/LinuxBookmarkStore.h"

#include "platform/linux/desktop/FolderBookmark.h"

#include <cerrno>
#include <cstdlib>
#include <memory>

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

Outcome<BookmarkStore::Resolved> resolve(const FolderBookmark &bookmark, const QByteArray &home, const SearchBounds &bounds)
{
    const FolderURL old = FolderURL::fromNativePath(bookmark.path);
    const auto there = FolderIdentity::ofFolder(bookmark.path);
    const int errorNumber = there ? 0 : errno;
    if (there && there->isSameFolder(bookmark.identity))
        return { BookmarkStore::Resolved { old, there->device != bookmark.identity.device } };
    if (const auto moved = findFolder(bookmark.identity, rootsNear(bookmark, home), bounds))
        return { BookmarkStore::Resolved { FolderURL::fromNativePath(*moved), true } };
    if (there)
        return { BookmarkStore::Resolved { old, true } };
    return { {}, errorNumber };
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

} // namespace kest
