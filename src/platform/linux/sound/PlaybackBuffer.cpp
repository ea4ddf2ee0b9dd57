#include "platform/linux/sound/PlaybackBuffer.h"

#include <algorithm>

namespace kest {

void PlaybackBuffer::begin(int sampleRate)
{
    const std::lock_guard lock(m_mutex);
    m_sampleRate = sampleRate;
    m_samples.resize(size_t(sampleRate) / 2);
}

bool PlaybackBuffer::write(const float *samples, qsizetype count)
{
    std::unique_lock lock(m_mutex);
    const auto size = qint64(m_samples.size());
    while (count > 0) {
        m_room.wait(lock, [&] { return m_cancelled || m_written - m_read < size; });
        if (m_cancelled)
            return false;
        const qint64 at = m_written % size;
        const qint64 fits = std::min({qint64(count), size - (m_written - m_read), size - at});
        std::copy_n(samples, fits, m_samples.begin() + at);
        m_written += fits;
        samples += fits;
        count -= fits;
    }
    return true;
}

void PlaybackBuffer::end()
{
    const std::lock_guard lock(m_mutex);
    m_ended = true;
}

void PlaybackBuffer::fail(PlaybackFailure failure)
{
    const std::lock_guard lock(m_mutex);
    m_failure = std::move(failure);
}

void PlaybackBuffer::cancel()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_room.notify_all();
}

int PlaybackBuffer::sampleRate() const
{
    const std::lock_guard lock(m_mutex);
    return m_sampleRate;
}

qsizetype PlaybackBuffer::read(float *samples, qsizetype count)
{
    const std::lock_guard lock(m_mutex);
    const auto size = qint64(m_samples.size());
    const qint64 taken = std::min(qint64(count), m_written - m_read);
    for (qint64 done = 0; done < taken;) {
        const qint64 at = m_read % size;
        const qint64 piece = std::min(taken - done, size - at);
        std::copy_n(m_samples.begin() + at, piece, samples + done);
        m_read += piece;
        done += piece;
    }
    if (taken > 0)
        m_room.notify_all();
    return qsizetype(taken);
}

bool PlaybackBuffer::hasEnded() const
{
    const std::lock_guard lock(m_mutex);
    return m_ended && m_written == m_read;
}

std::optional<PlaybackFailure> PlaybackBuffer::failure() const
{
    const std::lock_guard lock(m_mutex);
    return m_written == m_read ? m_failure : std::nullopt;
}

} // namespace kest
