#include "platform/linux/sound/PulsePlayer.h"

#include "platform/linux/sound/PlaybackDecoder.h"
#include "platform/linux/sound/WaveformScan.h"

#include <algorithm>
#include <utility>

namespace kest {

namespace {

// Keys that repeat and a pointer that is dragged seek many times a second; one start is enough.
constexpr int restartMilliseconds = 60;

/// Nearer to the end, Play begins anew.
constexpr double endSeconds = 0.01;

// What still reads a file is cancelled and gone by then, unless its disk does not answer.
constexpr int endMilliseconds = 300;

} // namespace

PulsePlayer::PulsePlayer(std::shared_ptr<PulseContext> context, std::shared_ptr<DecoderLoader> decoders)
    : m_context(std::move(context)), m_decoders(std::move(decoders))
{
    m_restart.setSingleShot(true);
    m_restart.setInterval(restartMilliseconds);
    m_restart.callOnTimeout(this, &PulsePlayer::startSession);
}

PulsePlayer::~PulsePlayer()
{
    m_mailbox->close();
    close();
    m_jobs->waitForAll(endMilliseconds);
}

void PulsePlayer::open(const FileURL &file)
{
    close();
    m_file = file;
    if (!m_file.isEmpty())
        read();
}

void PulsePlayer::close()
{
    pause();
    if (const auto cancelled = std::exchange(m_readingCancelled, nullptr))
        *cancelled = true;
    ++m_turn;
    m_file = {};
    m_version.reset();
    m_position = m_length = 0.0;
}

/// Length and waveform, on a thread of its own.
void PulsePlayer::read()
{
    if (m_readingCancelled)
        *m_readingCancelled = true;
    m_readingCancelled = std::make_shared<std::atomic<bool>>(false);
    const auto toPresent = [mailbox = m_mailbox, turn = m_turn](auto news) {
        mailbox->deliver([turn, news](PulsePlayer &player) {
            if (player.m_turn == turn)
                news(player);
        });
    };
    m_jobs->run([file = m_file, decoders = m_decoders, cancelled = m_readingCancelled, toPresent] {
        PlaybackFailure failure;
        const auto sound = SoundFile::open(file, *decoders, &failure);
        if (!sound) {
            toPresent([failure](PulsePlayer &player) { player.readingFailed(failure); });
            return;
        }
        toPresent([version = sound->version(), seconds = sound->seconds()](PulsePlayer &player) {
            player.m_version = version;
            player.m_length = seconds;
            Q_EMIT player.opened(seconds);
        });
        const QList<float> peaks = scanWaveform(sound->reader(), mostPeaks, *cancelled);
        if (!*cancelled)
            toPresent([peaks](PulsePlayer &player) { Q_EMIT player.waveformRead(peaks); });
    });
}

void PulsePlayer::readingFailed(const PlaybackFailure &failure)
{
    m_readingCancelled.reset();
    Q_EMIT troubleOccurred(failure.first, failure.second);
}

void PulsePlayer::play()
{
    if (m_playing || m_file.isEmpty())
        return;
    if (m_length > 0.0 && m_position >= m_length - endSeconds)
        m_position = 0.0;
    startSession();
    setPlaying(true);
}

void PulsePlayer::startSession()
{
    stopSession();
    const auto buffer = std::make_shared<PlaybackBuffer>();
    const auto toPresent = [mailbox = m_mailbox, buffer](auto news) {
        mailbox->deliver([buffer, news](PulsePlayer &player) {
            if (player.m_buffer == buffer)
                news(player);
        });
    };
    m_buffer = buffer;
    m_session = PlaybackSession::start(
        m_context, buffer, m_position,
        {[toPresent] { toPresent([](PulsePlayer &player) { player.sessionEnded(); }); },
         [toPresent](const PlaybackFailure &failure) {
             toPresent([failure](PulsePlayer &player) { player.sessionFailed(failure); });
         }});
    auto decoder = std::make_shared<PlaybackDecoder>();
    *decoder = {m_file, m_position, m_decoders, buffer,
                [toPresent](const FileVersion &version, double seconds) {
                    toPresent([=](PulsePlayer &player) { player.takeVersion(version, seconds); });
                }};
    m_jobs->run([decoder] { decoder->run(); });
}

void PulsePlayer::stopSession()
{
    m_restart.stop();
    m_buffer.reset();
    const auto session = std::exchange(m_session, nullptr);
    if (!session)
        return;
    m_position = session->position();
    session->stop();
}

void PulsePlayer::pause()
{
    stopSession();
    setPlaying(false);
}

void PulsePlayer::seek(double seconds)
{
    const bool goesOn = m_playing;
    stopSession();
    m_position = std::clamp(seconds, 0.0, m_length);
    if (goesOn)
        m_restart.start();
}

double PulsePlayer::position() const
{
    return m_session ? std::min(m_session->position(), m_length) : m_position;
}

void PulsePlayer::setPlaying(bool playing)
{
    if (std::exchange(m_playing, playing) != playing)
        Q_EMIT playingChanged(playing);
}

void PulsePlayer::takeVersion(const FileVersion &version, double seconds)
{
    // What is being read is not known yet, and needs no second reading.
    if (m_version == version || (!m_version && m_readingCancelled))
        return;
    m_version = version;
    m_length = seconds;
    read();
}

void PulsePlayer::sessionEnded()
{
    stopSession();
    m_position = m_length;
    setPlaying(false);
}

void PulsePlayer::sessionFailed(const PlaybackFailure &failure)
{
    stopSession();
    setPlaying(false);
    Q_EMIT troubleOccurred(failure.first, failure.second);
}

} // namespace kest
