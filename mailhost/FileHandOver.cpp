#include "FileHandOver.h"

#include "NativeChannel.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

// As much as there is, up to `size`: some file systems hand out less than was asked for before the end. -1 on an error.
ssize_t readFully(int descriptor, char *bytes, ssize_t size, off_t offset)
{
    ssize_t done = 0;
    while (done < size) {
        const ssize_t count = pread(descriptor, bytes + done, static_cast<size_t>(size - done), offset + done);
        if (count == 0)
            break;
        if (count > 0)
            done += count;
        else if (errno != EINTR)
            return -1;
    }
    return done;
}

} // namespace

FileHandOver::FileHandOver(NativeChannel &channel, const QList<QDBusUnixFileDescriptor> &files, int firstFile,
                           QObject *parent)
    : QObject(parent)
    , m_channel(channel)
    , m_firstFile(firstFile)
{
    for (const QDBusUnixFileDescriptor &file : files)
        m_sources += {file, 0};
}

FileHandOver::~FileHandOver()
{
    if (!m_ended)
        drop();
}

void FileHandOver::start()
{
    if (!measure())
        return fail(u"An attachment is not a regular file that can be read."_s);
    if (m_total > mostBytes)
        return fail(u"The attachments are larger than 2 GiB together, more than a mail can carry."_s);
    sendMore();
}

bool FileHandOver::measure()
{
    for (const Source &source : m_sources) {
        struct stat status {};
        if (fstat(source.descriptor.fileDescriptor(), &status) != 0 || !S_ISREG(status.st_mode))
            return false;
        m_total += qMin<qint64>(status.st_size, mostBytes + 1); // so that no sum overflows
    }
    return true;
}

void FileHandOver::sendMore()
{
    while (!m_ended && m_current < m_sources.size() && m_inFlight.size() < window)
        if (!sendPiece())
            return;
    if (!m_ended && m_current == m_sources.size() && m_inFlight.isEmpty()) {
        m_ended = true;
        Q_EMIT finished();
    }
}

bool FileHandOver::sendPiece()
{
    Source &source = m_sources[m_current];
    QByteArray bytes(pieceSize, Qt::Uninitialized);
    const ssize_t count = readFully(source.descriptor.fileDescriptor(), bytes.data(), pieceSize, source.offset);
    if (count < 0) {
        fail(u"An attachment cannot be read: %1."_s.arg(QString::fromLocal8Bit(std::strerror(errno))));
        return false;
    }
    bytes.truncate(count);
    source.offset += count;
    const bool last = count < pieceSize;
    m_channel.send({{u"chunk"_s, m_firstFile + m_current},
                    {u"data"_s, QString::fromLatin1(bytes.toBase64())},
                    {u"last"_s, last}});
    m_inFlight += count;
    m_current += last ? 1 : 0;
    return true;
}

void FileHandOver::taken(int file)
{
    if (m_ended || m_inFlight.isEmpty() || file < m_firstFile || file >= m_firstFile + m_sources.size())
        return;
    m_done += m_inFlight.takeFirst();
    // A file that grew while it was read must not show more than the whole.
    Q_EMIT progressed(qMin(m_done, m_total), m_total);
    sendMore();
}

void FileHandOver::fail(const QString &words)
{
    m_ended = true;
    drop();
    Q_EMIT failed(words);
}

void FileHandOver::drop()
{
    for (int index = 0; index < m_sources.size(); ++index)
        m_channel.send({{u"drop"_s, m_firstFile + index}});
}

} // namespace kest
