#include "platform/linux/sound/PlaybackSession.h"

#include "platform/linux/sound/CaptureGate.h"

#include <utility>

namespace kest {

namespace {

constexpr qint64 millisecond = 1'000'000; // in nanoseconds

// Several times within what the server holds; also how exact the position is.
constexpr int tickMilliseconds = 20;

constexpr qint64 serverPatience = 1500 * millisecond;
constexpr qint64 outputPatience = 5000 * millisecond; // a wireless loudspeaker wakes up slowly
constexpr qint64 outputDoubt = 700 * millisecond;
constexpr qint64 filePatience = 10'000 * millisecond; // a disk that sleeps, a machine under load

} // namespace

std::shared_ptr<PlaybackSession> PlaybackSession::start(const std::shared_ptr<PulseContext> &context,
                                                        const std::shared_ptr<PlaybackBuffer> &buffer, double from,
                                                        Events events)
{
    auto session = std::make_shared<PlaybackSession>(context, buffer, from, std::move(events));
    context->thread().post([session] { session->begin(); });
    return session;
}

PlaybackSession::PlaybackSession(const std::shared_ptr<PulseContext> &context,
                                 const std::shared_ptr<PlaybackBuffer> &buffer, double from, Events events)
    : m_owner(context), m_context(context.get()), m_buffer(buffer), m_from(from), m_position(from),
      m_events(std::move(events))
{
}

void PlaybackSession::stop()
{
    m_stopped = true;
    m_buffer->cancel();
    if (const auto context = m_owner.lock())
        context->thread().post([self = shared_from_this()] { self->end(); });
}

void PlaybackSession::begin()
{
    m_context->addListener(shared_from_this());
    m_waitingSince = monotonicNow();
    m_timer = std::make_unique<PulseTimer>(m_context->thread(), [this] { tick(); });
    m_context->ensureConnected();
    tick();
}

void PlaybackSession::tick()
{
    m_timer->setSingleShot(tickMilliseconds);
    if (!m_stream)
        tryToOpenStream();
    else if (m_stream->isReady())
        feed();
    if (!m_ended)
        watch();
}

void PlaybackSession::tryToOpenStream()
{
    if (!m_context->isReady() || m_buffer->sampleRate() == 0)
        return;
    m_stream = std::make_unique<PlaybackStream>(*m_context, m_buffer->sampleRate(), *this);
    m_waitingSince = monotonicNow();
    if (!m_stream->open())
        fail(PlaybackTrouble::NoOutput);
}

void PlaybackSession::feed()
{
    if (!m_stream->isHeard()) {
        // A server that just started may find an output yet.
        if (monotonicNow() - m_waitingSince > outputDoubt)
            fail(PlaybackTrouble::NoOutput);
        return;
    }
    if (const qsizetype wanted = m_stream->wanted(); wanted > 0 && !m_draining) {
        m_samples.resize(size_t(wanted));
        const qsizetype got = m_buffer->read(m_samples.data(), wanted);
        if (got > 0) {
            m_stream->write(m_samples.data(), got);
            m_waitingSince = monotonicNow();
        }
    }
    m_position.store(m_from + double(m_stream->played()) / m_buffer->sampleRate(), std::memory_order_relaxed);
    if (m_buffer->hasEnded() && !std::exchange(m_draining, true))
        m_stream->drain();
}

void PlaybackSession::watch()
{
    if (const auto failure = m_buffer->failure())
        return fail(failure->first, failure->second);
    const qint64 waited = monotonicNow() - m_waitingSince;
    const bool forFile = m_buffer->sampleRate() == 0 || (m_stream && m_stream->wanted() > 0 && !m_draining);
    if (!m_context->isReady() && waited > serverPatience)
        fail(PlaybackTrouble::NoSoundServer);
    else if (forFile && waited > filePatience)
        fail(PlaybackTrouble::Unreadable);
    else if (!forFile && m_stream && waited > outputPatience)
        fail(PlaybackTrouble::NoProgress);
    else if (!forFile && m_stream && waited > outputDoubt)
        m_stream->lookForOutput(); // not every server tells
}

void PlaybackSession::contextLost()
{
    fail(m_stream ? PlaybackTrouble::SoundServerLost : PlaybackTrouble::NoSoundServer, m_context->problem());
}

void PlaybackSession::streamDrained()
{
    if (m_ended)
        return;
    const auto self = shared_from_this(); // see end
    const auto ended = m_events.ended;
    end();
    if (!m_stopped && ended)
        ended();
}

void PlaybackSession::streamLost()
{
    // When the server dies, its streams fail first; the context tells in a moment.
    if (m_context->isFailing())
        return;
    fail(m_samples.empty() ? PlaybackTrouble::NoOutput : PlaybackTrouble::OutputLost);
}

void PlaybackSession::outputLost()
{
    fail(PlaybackTrouble::OutputLost);
}

void PlaybackSession::fail(PlaybackTrouble trouble, const QString &detail)
{
    if (m_ended)
        return;
    const auto self = shared_from_this(); // see end
    const auto failed = m_events.failed;
    end();
    if (!m_stopped && failed)
        failed({trouble, detail});
}

void PlaybackSession::end()
{
    if (std::exchange(m_ended, true))
        return;
    const auto self = shared_from_this(); // the context may be the last that has it
    m_buffer->cancel();
    m_context->removeListener(this);
    // Later: this may be called from a callback of the one or the other.
    m_context->thread().post([self] {
        self->m_stream.reset();
        self->m_timer.reset();
        self->m_events = {};
    });
}

} // namespace kest
