#include "platform/linux/sound/DefaultSourceCheck.h"

#include <pulse/operation.h>

#include <utility>

namespace kest {

DefaultSourceCheck::DefaultSourceCheck(Answer answer) : m_answer(std::move(answer)) { }

DefaultSourceCheck::~DefaultSourceCheck()
{
    cancel();
}

void DefaultSourceCheck::start(pa_mainloop_api *api)
{
    cancel();
    m_context = pa_context_new(api, "Kest");
    pa_context_set_state_callback(
        m_context, [](pa_context *, void *self) { static_cast<DefaultSourceCheck *>(self)->stateChanged(); }, this);
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        cancel();
}

void DefaultSourceCheck::cancel()
{
    if (pa_context *context = std::exchange(m_context, nullptr)) {
        pa_context_set_state_callback(context, nullptr, nullptr);
        pa_context_disconnect(context);
        pa_context_unref(context);
    }
}

void DefaultSourceCheck::stateChanged()
{
    const pa_context_state_t state = pa_context_get_state(m_context);
    if (!PA_CONTEXT_IS_GOOD(state)) {
        cancel();
    } else if (state == PA_CONTEXT_READY) {
        pa_operation *operation = pa_context_get_server_info(
            m_context,
            [](pa_context *, const pa_server_info *info, void *self) {
                static_cast<DefaultSourceCheck *>(self)->take(info);
            },
            this);
        if (operation)
            pa_operation_unref(operation);
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
