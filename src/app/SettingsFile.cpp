#include "app/SettingsFile.h"

#include "platform/StateFolder.h"

#include "platform/FileDescriptor.h"

#include <QDateTime>
#include <QDeadlineTimer>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <memory>

namespace kest {

namespace {

using namespace std::chrono_literals;

constexpr auto lockWait = 250ms;
constexpr qint64 largestFile = 16 << 20; // far above any settings; bounds what a wrong file can cost

QByteArray folderOf(const QByteArray &path)
{
    return path.left(qMax<qsizetype>(path.lastIndexOf('/'), 1));
}

// Where the file really lies: people keep their settings elsewhere and link to them.
QByteArray followed(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : path;
}

// The lock goes with the descriptor. A file system without locks does without.
bool lockFolder(int folder)
{
    const QDeadlineTimer deadline(lockWait);
    while (::flock(folder, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        if (deadline.hasExpired()) {
            errno = EWOULDBLOCK;
            return false;
        }
        ::usleep(2000);
    }
    return true;
}

bool writeAll(int fd, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const auto written = ::write(fd, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            return false;
        done += qMax<ssize_t>(written, 0);
    }
    return true;
}

mode_t modeOf(const QByteArray &path)
{
    struct stat info = {};
    return ::stat(path.constData(), &info) == 0 ? info.st_mode & 0777 : 0600;
}

bool writeSynchronised(const QByteArray &path, const QByteArray &bytes, mode_t mode)
{
    const FileDescriptor file(::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
    return file.isOpen() && ::fchmod(file.get(), mode) == 0 && writeAll(file.get(), bytes) && ::fsync(file.get()) == 0;
}

std::optional<QByteArray> readAll(const QByteArray &path)
{
    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return {};
    QByteArray bytes;
    char buffer[4096];
    while (bytes.size() <= largestFile) {
        const auto count = ::read(file.get(), buffer, sizeof buffer);
        if (count == 0)
            return bytes;
        if (count < 0 && errno != EINTR)
            return {};
        bytes.append(buffer, qMax<ssize_t>(count, 0));
    }
    return bytes;
}

} // namespace

SettingsFile::SettingsFile(QByteArray nativePath) : m_path(std::move(nativePath))
{
}

SettingsFile::Contents SettingsFile::read() const
{
    const auto bytes = readAll(m_path);
    if (!bytes && (errno == ENOENT || errno == ENOTDIR))
        return {};
    if (!bytes)
        return { Outcome::Unreadable, {}, posixError(errno, QString::fromUtf8(m_path)) };
    const auto settings = bytes->size() > largestFile ? std::nullopt : readSettings(*bytes);
    if (!settings)
        return { Outcome::Damaged, {}, posixError(EBADMSG, QString::fromUtf8(m_path)) };
    return { Outcome::Read, *settings, {} };
}

std::optional<QByteArray> SettingsFile::putAside() const
{
    const QByteArray path = followed(m_path);
    const QByteArray stamp = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")).toLatin1();
    const QByteArray aside = path + ".damaged-" + stamp;
    if (::renameat2(AT_FDCWD, path.constData(), AT_FDCWD, aside.constData(), RENAME_NOREPLACE) == 0
        || (errno == EINVAL && ::rename(path.constData(), aside.constData()) == 0))
        return aside;
    return {};
}

std::optional<SettingsMap> SettingsFile::update(const std::function<void(SettingsMap &)> &change, Error *error) const
{
    const QByteArray folder = folderOf(followed(m_path));
    const auto fail = [&](int number) {
        handBack(error, posixError(number, QString::fromUtf8(m_path)));
        return std::nullopt;
    };
    if (!makePrivateFolder(folder))
        return fail(errno);
    const FileDescriptor lock(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!lock.isOpen() || !lockFolder(lock.get()))
        return fail(errno);
    Contents contents = read();
    if (contents.outcome == Outcome::Damaged || contents.outcome == Outcome::Unreadable) {
        handBack(error, contents.error);
        return {};
    }
    change(contents.settings);
    if (!write(writeSettings(contents.settings), error))
        return {};
    return contents.settings;
}

bool SettingsFile::write(const QByteArray &text, Error *error) const
{
    const QByteArray path = followed(m_path);
    const QByteArray temporary = path + ".new";
    ::unlink(temporary.constData()); // left over from a writer that was killed
    const bool written = writeSynchronised(temporary, text, modeOf(path))
        && ::rename(temporary.constData(), path.constData()) == 0;
    if (!written) {
        handBack(error, posixError(errno, QString::fromUtf8(m_path)));
        ::unlink(temporary.constData());
        return false;
    }
    const FileDescriptor folder(::open(folderOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get()); // the new name is there either way; a failure here changes nothing that we could mend
    return true;
}

} // namespace kest
