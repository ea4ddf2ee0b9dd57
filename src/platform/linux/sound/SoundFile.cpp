#include "platform/linux/sound/SoundFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace kest {

namespace {

constexpr qint64 nanosecondsPerSecond = 1'000'000'000;

std::unique_ptr<SoundFile> failed(PlaybackFailure *failure, PlaybackTrouble trouble, const QString &detail)
{
    *failure = {trouble, detail};
    return nullptr;
}

} // namespace

std::unique_ptr<SoundFile> SoundFile::open(const FileURL &url, DecoderLoader &decoders, PlaybackFailure *failure)
{
    // Not blocking: a pipe in place of the file would wait for a writer.
    const int descriptor = ::open(url.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        return failed(failure, missing ? PlaybackTrouble::FileMissing : PlaybackTrouble::Unreadable,
                      FileFailure::fromErrno(errno).detail);
    }
    std::unique_ptr<SoundFile> file(new SoundFile(descriptor));
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return failed(failure, PlaybackTrouble::Unreadable, {});
    file->m_version = {status.st_dev, status.st_ino, status.st_size,
                       status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec};
    QString problem;
    DecoderPlugin *decoder = decoders.load(&problem);
    if (!decoder)
        return failed(failure, PlaybackTrouble::DecoderMissing, problem);
    FileFailure refused;
    file->m_reader = decoder->openReader(descriptor, &refused);
    if (!file->m_reader)
        return failed(failure, PlaybackTrouble::Unreadable, refused.detail);
    return file;
}

SoundFile::~SoundFile()
{
    m_reader.reset();
    ::close(m_descriptor);
}

} // namespace kest
