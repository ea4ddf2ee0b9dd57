#include "platform/linux/sound/PulsePlugin.h"

namespace {

#define KEST_PULSE_ADDRESS(name) &pa_##name,
constexpr kest::PulseFunctions functions = {KEST_PULSE_FUNCTIONS(KEST_PULSE_ADDRESS)};
#undef KEST_PULSE_ADDRESS

} // namespace

extern "C" __attribute__((visibility("default"))) const kest::PulseFunctions *kest_pulse_functions_2()
{
    return &functions;
}
