#pragma once

#include <QByteArray>
#include <QString>

namespace kest {

/// The absolute location of a file or folder, kept as the bytes that the file
/// system uses.
///
/// A Linux path may hold any byte but NUL, valid UTF-8 or not, so the bytes are
/// the truth and `path()` is a rendering for people. Give `nativePath()` to
/// system calls, never `path()`.
///
/// Value type; an empty one means "no location".
class FileURL
{
public:
    FileURL() = default;

    /// `nativePath` is an absolute path in the file system's own bytes.
    static FileURL fromNativePath(QByteArray nativePath);

    /// `path` is a text that `path()` gave, or any other absolute path.
    static FileURL fromPath(const QString &path);

    bool isEmpty() const { return m_path.isEmpty(); }

    const QByteArray &nativePath() const { return m_path; }

    /// The path as a text that `fromPath` turns back into the same bytes: UTF-8,
    /// with a byte B that is not valid UTF-8 as the lone surrogate U+DC00 + B.
    QString path() const;

    /// For people: what is not UTF-8 shows as U+FFFD.
    QString displayPath() const;

    /// The location with one more path component; `name` as `path()` writes it.
    FileURL appendingPathComponent(const QString &name) const;

    /// As above, for a name that came from the file system.
    FileURL appendingNativePathComponent(const QByteArray &name) const;

    FileURL deletingLastPathComponent() const;

    /// As `path()` writes it.
    QString lastPathComponent() const;
    QByteArray nativeLastPathComponent() const;

    /// What follows the last "." of the name, without the dot; empty when there
    /// is none, or when the name only begins with one (".profile").
    QString pathExtension() const;

    /// Brackets every use of a folder's contents. Without a sandbox there is
    /// nothing to open or close; the calls mark where a sandboxed build would.
    bool startAccessingSecurityScopedResource() const { return !isEmpty(); }
    void stopAccessingSecurityScopedResource() const {}

    friend bool operator==(const FileURL &, const FileURL &) = default;

private:
    QByteArray m_path; // no trailing "/" except for the root itself
};

/// A FileURL that names a folder.
using FolderURL = FileURL;

} // namespace kest
