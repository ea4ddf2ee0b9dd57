#pragma once

#include "platform/linux/sound/PulsePlugin.h"

#include <functional>
#include <string>

namespace kest {

class PulseThread;

/// Asks the sound server, over a connection of its own, which source is the default one.
///
/// PipeWire's PulseAudio server (seen in 0.3.65) sometimes goes on telling a
/// connection the default source of before, when devices came and went in
/// quick succession, and announces nothing; a new connection is told the right
/// one. For the PulseThread.
class DefaultSourceCheck
{
public:
    /// UTF-8; may be empty, or a name that does not exist.
    using Answer = std::function<void(const std::string &defaultSource)>;

    explicit DefaultSourceCheck(Answer answer);
    ~DefaultSourceCheck();
    DefaultSourceCheck(const DefaultSourceCheck &) = delete;
    DefaultSourceCheck &operator=(const DefaultSourceCheck &) = delete;

    /// The answer comes later; never, if the server cannot be reached. Replaces a question under way.
    void start(const PulseThread &thread);
    void cancel();

private:
    void stateChanged();
    void take(const pa_server_info *info);

    const Answer m_answer;
    const PulseFunctions *m_pulse = nullptr; // as long as there is a context
    pa_context *m_context = nullptr;
};

} // namespace kest
