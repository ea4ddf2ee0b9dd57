#pragma once

#include "platform/linux/sound/SoundFile.h"

#include <condition_variable>
#include <mutex>
#include <vector>

namespace kest {

/// Half a second of sound between the thread that decodes and the PulseThread,
/// which never waits here: the lock is held for the length of a copy.
class PlaybackBuffer
{
public:
    /// Decoder's side, first: what the samples are. Makes the room.
    void begin(int sampleRate);

    /// Decoder's side. Waits for room; false when nobody wants them any more.
    bool write(const float *samples, qsizetype count);

    /// Decoder's side, last: all is written, or no more can be.
    void end();
    void fail(PlaybackFailure failure);

    /// Any thread: nobody reads any more.
    void cancel();

    /// Reader's side. Hz; 0 until the decoder has begun.
    int sampleRate() const;

    /// Reader's side. How many samples were there.
    qsizetype read(float *samples, qsizetype count);

    /// Reader's side: all was read, and no more comes.
    bool hasEnded() const;
    std::optional<PlaybackFailure> failure() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_room;
    std::vector<float> m_samples; // a ring
    qint64 m_written = 0;
    qint64 m_read = 0;
    int m_sampleRate = 0;
    bool m_ended = false;
    bool m_cancelled = false;
    std::optional<PlaybackFailure> m_failure;
};

} // namespace kest
