#include "platform/linux/sound/PulseMicrophoneTrial.h"

#include "platform/linux/sound/CaptureSession.h"

#include <utility>

namespace kest {

PulseMicrophoneTrial::PulseMicrophoneTrial(std::shared_ptr<PulseContext> context)
    : m_context(std::move(context))
{
}

PulseMicrophoneTrial::~PulseMicrophoneTrial()
{
    stop();
    m_mailbox->close();
}

QString PulseMicrophoneTrial::microphone() const
{
    const auto source = m_context->sources().microphone();
    return source ? QString::fromStdString(source->description) : QString();
}

void PulseMicrophoneTrial::start()
{
    if (m_capture)
        return;
    m_capture = CaptureSession::start(m_context, CaptureSession::Keeping::Nothing);
    const int number = ++m_number;
    m_capture->setEvents({.captureStarted = {},
                          .troubleOccurred =
                              [mailbox = m_mailbox, number](RecordingTrouble trouble, const QString &) {
                                  mailbox->deliver([number, trouble](PulseMicrophoneTrial &trial) {
                                      trial.tellTrouble(number, trouble);
                                  });
                              },
                          .inputConditionChanged = {}});
    m_capture->resume();
}

void PulseMicrophoneTrial::stop()
{
    if (const auto capture = std::exchange(m_capture, nullptr))
        capture->abandon();
}

float PulseMicrophoneTrial::level() const
{
    return m_capture ? m_capture->decibels() : LevelMeter::silence;
}

void PulseMicrophoneTrial::tellTrouble(int number, RecordingTrouble trouble)
{
    if (!m_capture || number != m_number)
        return; // of a trial that was stopped meanwhile
    m_capture.reset();
    Q_EMIT troubleOccurred(trouble);
}

} // namespace kest
