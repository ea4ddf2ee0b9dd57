#include "platform/linux/sound/RecordingJournal.h"

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

QByteArray toJson(const RecordingFile &file)
{
    QJsonObject object;
    // A path is bytes; percent-encoded they are a text, whatever they are.
    object[u"path"] = QString::fromLatin1(file.url().nativePath().toPercentEncoding("/"));
    object[u"inode"] = QString::number(file.inode());
    object[u"born"] = QString::number(file.birthTime());
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

bool writeAll(int file, const QByteArray &bytes)
{
    return write(file, bytes.constData(), size_t(bytes.size())) == bytes.size() && fsync(file) == 0;
}

/// The folder and its missing parents, open to nobody else: the entries say where the person's recordings lie.
void makePrivateFolder(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (mkdir(path.constData(), 0700) < 0 && errno == ENOENT && slash > 0) {
        makePrivateFolder(path.left(slash));
        mkdir(path.constData(), 0700);
    }
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
    const Descriptor folder(open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    fsync(folder.get());
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
    m_lock = Descriptor();
}

QByteArray RecordingJournal::defaultFolder()
{
    QByteArray state = qgetenv("XDG_STATE_HOME");
    if (!state.startsWith('/'))
        state = QFile::encodeName(QDir::homePath()) + "/.local/state";
    return state + "/kest/unfinished-recordings";
}

std::unique_ptr<RecordingJournal::Entry> RecordingJournal::remember(const RecordingFile &file) const
{
    makePrivateFolder(m_folder);
    chmod(m_folder.constData(), 0700); // one that was made otherwise
    const QByteArray name = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
    // Written under another name first: another process must never see an entry that is not locked yet.
    const QByteArray hidden = m_folder + "/." + name;
    auto entry = std::make_unique<Entry>();
    entry->m_file = file.url();
    entry->m_inode = file.inode();
    entry->m_birthTime = file.birthTime();
    entry->m_path = m_folder + "/" + name + ".json";
    entry->m_lock = Descriptor(open(hidden.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    const bool written = entry->m_lock.isValid() && flock(entry->m_lock.get(), LOCK_EX | LOCK_NB) == 0
        && writeAll(entry->m_lock.get(), toJson(file))
        && rename(hidden.constData(), entry->m_path.constData()) == 0;
    if (!written) {
        unlink(hidden.constData());
        return nullptr;
    }
    syncFolder(m_folder);
    return entry;
}

std::vector<std::unique_ptr<RecordingJournal::Entry>> RecordingJournal::interrupted() const
{
    std::vector<std::unique_ptr<Entry>> entries;
    const QStringList names = QDir(QFile::decodeName(m_folder)).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &name : names) {
        if (auto entry = take(m_folder + "/" + QFile::encodeName(name)))
            entries.push_back(std::move(entry));
    }
    return entries;
}

std::unique_ptr<RecordingJournal::Entry> RecordingJournal::take(const QByteArray &path) const
{
    auto entry = std::make_unique<Entry>();
    entry->m_path = path;
    entry->m_lock = Descriptor(open(path.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!entry->m_lock.isValid() || !isOurs(entry->m_lock.get()))
        return nullptr;
    if (flock(entry->m_lock.get(), LOCK_EX | LOCK_NB) < 0)
        return nullptr; // another process is at it
    QByteArray bytes(largestEntry, '\0');
    const ssize_t length = read(entry->m_lock.get(), bytes.data(), size_t(bytes.size()));
    const QJsonObject object = QJsonDocument::fromJson(bytes.left(length > 0 ? length : 0)).object();
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
