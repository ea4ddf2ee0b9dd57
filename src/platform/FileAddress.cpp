#include "platform/FileAddress.h"

namespace kest {

QUrl addressOf(const FileURL &file)
{
    return QUrl::fromEncoded("file://" + file.nativePath().toPercentEncoding("/"), QUrl::StrictMode);
}

FileURL fileAt(const QUrl &address)
{
    if (!address.isLocalFile() || !address.host().isEmpty())
        return {};
    return FileURL::fromNativePath(QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()));
}

} // namespace kest
