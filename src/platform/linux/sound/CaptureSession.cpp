#include "platform/linux/sound/CaptureSession.h"

#include <algorithm>
#include <utility>

namespace kest {

namespace {

constexpr qint64 millisecond = 1'000'000; // in nanoseconds

// Trouble is told within 2 s of its beginning; looking costs up to one interval more.
constexpr int watchMilliseconds = 200;
constexpr qint64 serverPatience = 1500 * millisecond;
constexpr qint64 microphonePatience = 1000 * millisecond; // a session manager may still be starting
constexpr qint64 dataPatience = 1500 * millisecond;

// What was spoken before Stop has arrived this long after the microphone's own delay, or never will. A microphone on the
// network may take a second for it.
constexpr qint64 stopPatience = 300 * millisecond;
constexpr qint64 longestDelay = 2000 * millisecond;

/// The moment of a sample is known to some tens of milliseconds: rather that much of silence before a word than a word
/// without its beginning.
constexpr qint64 openingMargin = 60 * millisecond;

/// How long samples may lie with the server while nobody waits for the first or the last of them. Each reading wakes the
/// encoder, whose code has left the processor's caches by then: one wake-up for four packets, and no more than a tenth of a
/// second that a crash takes.
constexpr int readingMilliseconds = 100;

} // namespace

std::shared_ptr<CaptureSession> CaptureSession::start(const std::shared_ptr<PulseContext> &context, Keeping keeping)
{
    auto session = std::make_shared<CaptureSession>(context, keeping);
    context->thread().post([session] { session->open(); });
    return session;
}

CaptureSession::CaptureSession(const std::shared_ptr<PulseContext> &context, Keeping keeping)
    : m_owner(context), m_context(context.get()), m_keeping(keeping), m_gate(CaptureStream::sampleRate),
      m_meter(CaptureStream::sampleRate), m_inputWatch(CaptureStream::sampleRate)
{
}

void CaptureSession::setEvents(Events events)
{
    post([self = shared_from_this(), events = std::move(events)] {
        self->m_events = events;
        if (self->capturedSamples() > 0 && events.captureStarted)
            events.captureStarted();
        if (self->m_trouble && events.troubleOccurred)
            events.troubleOccurred(self->m_trouble->first, self->m_trouble->second);
        self->m_toldCondition = InputCondition::Unknown;
        self->tellInputCondition();
    });
}

void CaptureSession::resume()
{
    m_gate.schedule(CaptureGate::Action::Open, monotonicNow() - openingMargin);
}

void CaptureSession::pause()
{
    m_gate.schedule(CaptureGate::Action::Close, monotonicNow());
}

void CaptureSession::stop()
{
    const MonotonicTime now = monotonicNow();
    m_gate.schedule(CaptureGate::Action::End, now);
    post([self = shared_from_this(), now] {
        if (self->m_state != State::Streaming)
            return self->end();
        // The delay grows by as long as nothing has come: that is no delay of the microphone's.
        const qint64 delay = self->m_stream->latency().value_or(0) - (now - self->m_waitingSince);
        self->m_stopBy = now + stopPatience + std::clamp(delay, qint64(0), longestDelay);
        self->watch();
    });
}

void CaptureSession::abandon()
{
    post([self = shared_from_this()] { self->end(); });
}

qsizetype CaptureSession::read(float *samples, qsizetype count, int milliseconds)
{
    if (m_ring.available() == 0 && !hasEnded())
        m_samplesReady.wait(milliseconds);
    return m_ring.read(samples, count);
}

void CaptureSession::post(std::function<void()> task)
{
    // Without a context the session has ended.
    if (const auto context = m_owner.lock())
        context->thread().post(std::move(task));
}

void CaptureSession::open()
{
    m_context->addListener(shared_from_this());
    m_context->thread().addReader(this);
    m_watch = std::make_unique<PulseTimer>(m_context->thread(), [this] { watch(); });
    m_waitingSince = monotonicNow();
    m_context->ensureConnected();
    m_watch->setSingleShot(watchMilliseconds); // by libpulse, which may only now be loaded
    tryToOpenStream();
}

void CaptureSession::tryToOpenStream()
{
    if (m_state != State::WaitingForSource || !m_context->isReady())
        return;
    if (!std::exchange(m_everReady, true))
        m_waitingSince = monotonicNow();
    const auto source = m_context->sources().microphone();
    if (!source)
        return;
    m_stream = std::make_unique<CaptureStream>(*m_context, *source, *this);
    m_state = State::Streaming;
    m_waitingSince = monotonicNow();
    if (!m_stream->open())
        streamLost();
}

void CaptureSession::sourcesChanged()
{
    if (m_state == State::WaitingForSource)
        tryToOpenStream();
    else if (m_state == State::Streaming)
        m_stream->sourcesChanged();
}

void CaptureSession::contextLost()
{
    fail(m_state == State::Streaming ? RecordingTrouble::SoundServerLost : RecordingTrouble::NoSoundServer,
         m_context->problem());
}

void CaptureSession::streamLost()
{
    // When the server dies, its streams fail first; the context tells in a moment.
    if (m_context->isFailing())
        return;
    fail(RecordingTrouble::MicrophoneLost, microphoneName());
}

int CaptureSession::readingInterval() const
{
    return capturedSamples() > 0 && !m_stopBy ? readingMilliseconds : 0;
}

void CaptureSession::everythingRead(MonotonicTime looked)
{
    if (m_ring.available() > 0)
        m_samplesReady.wake();
    // Only now: after a while in which nothing ran, what was captured meanwhile is still to be read.
    if (m_stopBy && looked >= m_stopBy)
        return end();
    if (const auto trouble = troubleOfWaiting(looked - m_waitingSince))
        fail(*trouble, microphoneName());
}

void CaptureSession::samplesCaptured(const float *samples, qsizetype count, const std::function<MonotonicTime()> &start,
                                     bool clipped)
{
    if (m_state != State::Streaming)
        return;
    m_waitingSince = monotonicNow();
    m_gate.pass(samples, count, start, [this, clipped](const float *kept, qsizetype keptCount) {
        keep(kept, keptCount);
        m_inputWatch.add(kept, keptCount, clipped);
    });
    if (m_gate.hasEnded())
        return end();
    if (!m_gate.isOpen()) {
        m_meter.reset();
        m_inputWatch.reset();
    }
    tellInputCondition();
}

void CaptureSession::tellInputCondition()
{
    const InputCondition condition = m_inputWatch.condition();
    if (std::exchange(m_toldCondition, condition) != condition && m_events.inputConditionChanged)
        m_events.inputConditionChanged(condition, microphoneName());
}

void CaptureSession::keep(const float *samples, qsizetype count)
{
    m_meter.add(samples, count);
    if (m_keeping == Keeping::Nothing)
        return;
    const qsizetype taken = m_ring.write(samples, count);
    const qint64 before = m_captured.fetch_add(taken, std::memory_order_acq_rel);
    if (before == 0 && taken > 0)
        firstSampleCaptured();
    if (taken < count)
        fail(RecordingTrouble::CannotWrite);
}

void CaptureSession::firstSampleCaptured()
{
    if (m_events.captureStarted)
        m_events.captureStarted();
}

void CaptureSession::watch()
{
    const MonotonicTime now = monotonicNow();
    if (m_stopBy && now < m_stopBy) // then the loop turns, and with it comes a reading
        m_watch->setSingleShot(int((m_stopBy - now) / millisecond) + 1);
    else if (!m_stopBy && readingInterval() == 0) // else there are readings all the time
        m_watch->setSingleShot(watchMilliseconds);
}

std::optional<RecordingTrouble> CaptureSession::troubleOfWaiting(qint64 waited) const
{
    if (m_state == State::Streaming)
        return waited > dataPatience ? std::optional(RecordingTrouble::NoSound) : std::nullopt;
    if (!m_context->isReady())
        return waited > serverPatience ? std::optional(RecordingTrouble::NoSoundServer) : std::nullopt;
    return waited > microphonePatience ? std::optional(RecordingTrouble::NoMicrophone) : std::nullopt;
}

QString CaptureSession::microphoneName() const
{
    return m_stream ? QString::fromStdString(m_stream->source().description) : QString();
}

void CaptureSession::fail(RecordingTrouble trouble, const QString &detail)
{
    if (m_state == State::Ended)
        return;
    m_trouble = {trouble, detail};
    end();
    if (m_events.troubleOccurred)
        m_events.troubleOccurred(trouble, detail);
}

void CaptureSession::end()
{
    if (std::exchange(m_state, State::Ended) == State::Ended)
        return;
    const auto self = shared_from_this(); // the context may be the last that has it
    m_gate.end();
    m_meter.reset();
    m_inputWatch.reset();
    tellInputCondition();
    m_context->thread().removeReader(this);
    m_context->removeListener(this);
    // Later: this may be called from a callback of the one or the other.
    m_context->thread().post([self] {
        self->m_stream.reset();
        self->m_watch.reset();
        self->m_events = {};
    });
    m_ended.store(true, std::memory_order_release);
    m_samplesReady.wake();
}

} // namespace kest
