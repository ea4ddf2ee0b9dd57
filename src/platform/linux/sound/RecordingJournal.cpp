#include "platform/linux/sound/RecordingJournal.h"

#include "platform/StateFolder.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace kest {

namespace {

constexpr qsizetype largestEntry = 64 * 1024;

QByteArray toJson(const FileURL &file, quint64 inode, qint64 birthTime)
{
    QJsonObject object;
    // A path is bytes; percent-encoded they are a text, whatever they are.
    object[u"path"] = QString::fromLatin1(file.nativePath().toPercentEncoding("/"));
    object[u"inode"] = QString::number(inode);
    object[u"born"] = QString::number(birthTime);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

bool writeAll(int file, const QByteArray &bytes)
{
    return write(file, bytes.constData(), size_t(bytes.size())) == bytes.size();
}

/// Whether nobody but this person can have written it. What an entry names is rewritten, and removed when empty.
bool isOurs(int file)
{
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid()
        && !(status.st_mode & (S_IWGRP | S_IWOTH));
}

void syncFolder(const QByteArray &path)
{
    const FileDescriptor folder(open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    fsync(folder.get());
}

bool lock(const FileDescriptor &file)
{
    return file.isOpen() && flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

/// False when another file took its place meanwhile.
bool isAt(const FileDescriptor &file, const QByteArray &path)
{
    struct stat opened = {}, there = {};
    return fstat(file.get(), &opened) == 0 && lstat(path.constData(), &there) == 0 && opened.st_ino == there.st_ino
        && opened.st_dev == there.st_dev;
}

/// Puts a file with this text at `path`, in place of any that is there, and
/// gives it locked. Written under another name first: nobody must ever see it
/// there unlocked or half written. Invalid when it cannot be done.
FileDescriptor putLocked(const QByteArray &path, const QByteArray &text)
{
    constexpr int tries = 3; // another process may take the other name for one left behind
    const qsizetype slash = path.lastIndexOf('/');
    for (int number = 0; number < tries; ++number) {
        const QByteArray hidden = path.left(slash + 1) + '.' + QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
        FileDescriptor file(open(hidden.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (lock(file) && writeAll(file.get(), text)
            && rename(hidden.constData(), path.constData()) == 0)
            return file;
        unlink(hidden.constData());
    }
    return {};
}

} // namespace

int RecordingJournal::Entry::ageInDays() const
{
    struct stat status = {};
    if (fstat(m_lock.get(), &status) < 0)
        return 0;
    return int((time(nullptr) - status.st_mtim.tv_sec) / (24 * 60 * 60));
}

void RecordingJournal::Entry::done()
{
    unlink(m_path.constData());
    m_lock = FileDescriptor();
}

QByteArray RecordingJournal::defaultFolder()
{
    return unfinishedRecordingsFolder();
}

qint64 RecordingJournal::Entry::writtenAt() const
{
    struct stat status = {};
    if (fstat(m_lock.get(), &status) < 0)
        return 0;
    return qint64(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
}

bool RecordingJournal::Entry::confirm(const RecordingFile &file)
{
    FileDescriptor written = putLocked(m_path, toJson(file.url(), file.inode(), file.birthTime()));
    if (!written.isOpen())
        return false;
    m_lock = std::move(written);
    m_inode = file.inode();
    m_birthTime = file.birthTime();
    return true;
}

void RecordingJournal::Entry::sync() const
{
    fsync(m_lock.get());
    syncFolder(m_path.left(m_path.lastIndexOf('/')));
}

std::unique_ptr<RecordingJournal::Entry> RecordingJournal::announce(const FileURL &file) const
{
    makePrivateFolder(m_folder);
    chmod(m_folder.constData(), 0700); // one that was made otherwise
    auto entry = std::make_unique<Entry>();
    entry->m_file = file;
    entry->m_path = m_folder + "/" + QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + ".json";
    entry->m_lock = putLocked(entry->m_path, toJson(file, 0, 0));
    return entry->m_lock.isOpen() ? std::move(entry) : nullptr;
}

std::vector<std::unique_ptr<RecordingJournal::Entry>> RecordingJournal::interrupted() const
{
    removeHalfWritten();
    std::vector<std::unique_ptr<Entry>> entries;
    const QStringList names = QDir(QFile::decodeName(m_folder)).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &name : names) {
        if (auto entry = take(m_folder + "/" + QFile::encodeName(name)))
            entries.push_back(std::move(entry));
    }
    return entries;
}

void RecordingJournal::removeHalfWritten() const
{
    const QStringList names = QDir(QFile::decodeName(m_folder)).entryList({QStringLiteral(".*")}, QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        const QByteArray path = m_folder + "/" + QFile::encodeName(name);
        // Whoever is writing it holds its lock.
        if (lock(FileDescriptor(open(path.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW))))
            unlink(path.constData());
    }
}

std::unique_ptr<RecordingJournal::Entry> RecordingJournal::take(const QByteArray &path) const
{
    auto entry = std::make_unique<Entry>();
    entry->m_path = path;
    entry->m_lock = FileDescriptor(open(path.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!entry->m_lock.isOpen() || !isOurs(entry->m_lock.get()))
        return nullptr;
    if (!lock(entry->m_lock) || !isAt(entry->m_lock, path))
        return nullptr; // another process is at it
    QByteArray bytes(largestEntry, '\0');
    const ssize_t length = read(entry->m_lock.get(), bytes.data(), size_t(bytes.size()));
    if (length < 0)
        return nullptr; // the disk may yet give it at another start
    const QJsonObject object = QJsonDocument::fromJson(bytes.left(length)).object();
    const QByteArray file = QByteArray::fromPercentEncoding(object[u"path"].toString().toLatin1());
    if (!file.startsWith('/')) {
        entry->done(); // written only halfway, or not by us: it can never be of use
        return nullptr;
    }
    entry->m_file = FileURL::fromNativePath(file);
    entry->m_inode = object[u"inode"].toString().toULongLong();
    entry->m_birthTime = object[u"born"].toString().toLongLong();
    return entry;
}

} // namespace kest
