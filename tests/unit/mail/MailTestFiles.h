#pragma once

#include "platform/FileURL.h"

#include <QByteArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace kest::test {

/// A throw-away folder of files to attach.
class MailTestFiles
{
public:
    MailTestFiles() = default;
    ~MailTestFiles()
    {
        // The folder's own removal cannot name files that are not UTF-8.
        for (const FileURL &file : std::as_const(m_written))
            ::unlink(file.nativePath().constData());
    }
    MailTestFiles(const MailTestFiles &) = delete;
    MailTestFiles &operator=(const MailTestFiles &) = delete;

    /// `name` in the file system's own bytes.
    FileURL write(const QByteArray &name, const QByteArray &bytes)
    {
        const FileURL file = at(name);
        const int descriptor = ::open(file.nativePath().constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (descriptor < 0 || ::write(descriptor, bytes.constData(), static_cast<size_t>(bytes.size())) != bytes.size())
            qFatal("cannot write the test's file");
        ::close(descriptor);
        m_written.append(file);
        return file;
    }

    FileURL at(const QByteArray &name) const
    {
        return FileURL::fromPath(m_folder.path()).appendingNativePathComponent(name);
    }

    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QList<FileURL> m_written;
};

/// The bytes of a small attachment in the fake's state.
inline QByteArray attachedBytes(const QJsonValue &attachment)
{
    return QByteArray::fromBase64(attachment[u"base64"].toString().toLatin1());
}

} // namespace kest::test
