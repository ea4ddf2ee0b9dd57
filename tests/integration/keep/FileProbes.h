#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace kest::testing {

// Streams, not QFile: any bytes may stand in a name.
inline bool write(const QByteArray &path, const QByteArray &content)
{
    std::ofstream file(path.toStdString(), std::ios::binary | std::ios::trunc);
    file << content.toStdString() << std::flush;
    return file.good();
}

inline QByteArray read(const QByteArray &path)
{
    std::ifstream file(path.toStdString(), std::ios::binary);
    if (!file)
        return "(unreadable)";
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
}

// By lstat, so a broken link is there too.
inline bool there(const QByteArray &path)
{
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0;
}

inline mode_t modeOf(const QByteArray &path)
{
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

inline QByteArray noteLine(const QByteArray &trash, const QByteArray &name, const QByteArray &key)
{
    for (const QByteArray &line : read(trash + "/info/" + name + ".trashinfo").split('\n')) {
        if (line.startsWith(key + '='))
            return line.mid(key.size() + 1);
    }
    return "(no such line)";
}

inline QByteArray originalPath(const QByteArray &trash, const QByteArray &name)
{
    return QByteArray::fromPercentEncoding(noteLine(trash, name, "Path"));
}

inline QStringList listed(const QByteArray &folder)
{
    return QDir(QFile::decodeName(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace kest::testing
