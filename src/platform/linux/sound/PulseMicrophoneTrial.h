#pragma once

#include "platform/MicrophoneTrial.h"
#include "platform/linux/sound/Mailbox.h"

#include <memory>

namespace kest {

class CaptureSession;
class PulseContext;

/// A CaptureSession that keeps nothing, for as long as the trial lasts.
class PulseMicrophoneTrial final : public MicrophoneTrial
{
    Q_OBJECT

public:
    explicit PulseMicrophoneTrial(std::shared_ptr<PulseContext> context);
    ~PulseMicrophoneTrial() override;

    QString microphone() const override;
    void start() override;
    void stop() override;
    bool isListening() const override { return m_capture != nullptr; }
    float level() const override;

private:
    Q_INVOKABLE void takeNews() { m_mailbox->takeOne(); }
    void tellTrouble(int number, RecordingTrouble trouble);

    const std::shared_ptr<PulseContext> m_context;
    const std::shared_ptr<Mailbox<PulseMicrophoneTrial>> m_mailbox
        = std::make_shared<Mailbox<PulseMicrophoneTrial>>(this);
    std::shared_ptr<CaptureSession> m_capture; // null while not listening
    int m_number = 0;                          // of the last trial that was started
};

} // namespace kest
