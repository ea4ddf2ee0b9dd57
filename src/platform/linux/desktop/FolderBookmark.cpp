#include "platform/linux/desktop/FolderBookmark.h"

#include <QDataStream>

namespace kest {

namespace {

const QByteArray magic = QByteArrayLiteral("KBM1");

} // namespace

QByteArray FolderBookmark::toBytes() const
{
    QByteArray bytes;
    QDataStream out(&bytes, QDataStream::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << magic << path << realPath << identity.device << identity.inode << identity.birthSeconds
        << identity.birthNanoseconds << identity.hasBirth;
    return bytes;
}

std::optional<FolderBookmark> FolderBookmark::fromBytes(const QByteArray &bytes)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_6_0);
    QByteArray begin;
    FolderBookmark bookmark;
    FolderIdentity &identity = bookmark.identity;
    in >> begin >> bookmark.path >> bookmark.realPath >> identity.device >> identity.inode >> identity.birthSeconds
        >> identity.birthNanoseconds >> identity.hasBirth;
    if (in.status() != QDataStream::Ok || begin != magic || !bookmark.path.startsWith('/'))
        return {};
    return bookmark;
}

} // namespace kest
