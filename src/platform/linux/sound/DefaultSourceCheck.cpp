#include "platform/linux/sound/DefaultSourceCheck.h"

#include "platform/linux/sound/PulseThread.h"

#include <utility>

namespace kest {

DefaultSourceCheck::DefaultSourceCheck(Answer answer) : m_answer(std::move(answer)) { }

DefaultSourceCheck::~DefaultSourceCheck()
{
    cancel();
}

void DefaultSourceCheck::start(const PulseThread &thread)
{
    cancel();
    m_pulse = &thread.pulse();
    m_context = m_pulse->context_new(thread.api(), "Kest");
    m_pulse->context_set_state_callback(
        m_context, [](pa_context *, void *self) { static_cast<DefaultSourceCheck *>(self)->stateChanged(); }, this);
    if (m_pulse->context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        cancel();
}

void DefaultSourceCheck::cancel()
{
    if (pa_context *context = std::exchange(m_context, nullptr)) {
        m_pulse->context_set_state_callback(context, nullptr, nullptr);
        m_pulse->context_disconnect(context);
        m_pulse->context_unref(context);
    }
}

void DefaultSourceCheck::stateChanged()
{
    const pa_context_state_t state = m_pulse->context_get_state(m_context);
    if (!PA_CONTEXT_IS_GOOD(state)) {
        cancel();
    } else if (state == PA_CONTEXT_READY) {
        pa_operation *operation = m_pulse->context_get_server_info(
            m_context,
            [](pa_context *, const pa_server_info *info, void *self) {
                static_cast<DefaultSourceCheck *>(self)->take(info);
            },
            this);
        if (operation)
            m_pulse->operation_unref(operation);
    }
}

void DefaultSourceCheck::take(const pa_server_info *info)
{
    if (!m_context) // a cancelled question ends with an empty answer
        return;
    const bool answered = info;
    const std::string name = info && info->default_source_name ? info->default_source_name : "";
    cancel();
    if (answered)
        m_answer(name);
}

} // namespace kest
