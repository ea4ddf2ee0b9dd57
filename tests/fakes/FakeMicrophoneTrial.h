#pragma once

#include "platform/MicrophoneTrial.h"

namespace kest::test {

/// A microphone that hears what it is told, and counts how often it is opened.
class FakeMicrophoneTrial : public MicrophoneTrial
{
    Q_OBJECT

public:
    using MicrophoneTrial::MicrophoneTrial;

    QString microphone() const override { return name; }

    void start() override
    {
        ++starts;
        m_listening = true;
    }

    void stop() override { m_listening = false; }
    bool isListening() const override { return m_listening; }
    float level() const override { return m_listening ? heard : -160.0F; }

    /// The microphone cannot be opened, or went away.
    void fail(RecordingTrouble trouble)
    {
        m_listening = false;
        Q_EMIT troubleOccurred(trouble);
    }

    QString name = QStringLiteral("Built-in Microphone");
    float heard = -160.0F; ///< dBFS
    int starts = 0;

private:
    bool m_listening = false;
};

} // namespace kest::test
