#pragma once

#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/sample.h>
#include <pulse/stream.h>
#include <pulse/subscribe.h>
#include <pulse/timeval.h>

// Each function of libpulse that is called, without its "pa_".
#define KEST_PULSE_FUNCTIONS(FUNCTION)       \
    FUNCTION(context_connect)                \
    FUNCTION(context_disconnect)             \
    FUNCTION(context_errno)                  \
    FUNCTION(context_get_server_info)        \
    FUNCTION(context_get_sink_info_by_index) \
    FUNCTION(context_get_source_info_list)   \
    FUNCTION(context_get_state)              \
    FUNCTION(context_new)                    \
    FUNCTION(context_new_with_proplist)      \
    FUNCTION(context_set_state_callback)     \
    FUNCTION(context_set_subscribe_callback) \
    FUNCTION(context_subscribe)              \
    FUNCTION(context_unref)                  \
    FUNCTION(gettimeofday)                   \
    FUNCTION(mainloop_free)                  \
    FUNCTION(mainloop_get_api)               \
    FUNCTION(mainloop_iterate)               \
    FUNCTION(mainloop_new)                   \
    FUNCTION(mainloop_set_poll_func)         \
    FUNCTION(operation_cancel)               \
    FUNCTION(operation_unref)                \
    FUNCTION(proplist_free)                  \
    FUNCTION(proplist_new)                   \
    FUNCTION(proplist_sets)                  \
    FUNCTION(stream_connect_playback)        \
    FUNCTION(stream_connect_record)          \
    FUNCTION(stream_disconnect)              \
    FUNCTION(stream_drain)                   \
    FUNCTION(stream_drop)                    \
    FUNCTION(stream_get_device_index)        \
    FUNCTION(stream_get_device_name)         \
    FUNCTION(stream_get_latency)             \
    FUNCTION(stream_get_state)               \
    FUNCTION(stream_get_time)                \
    FUNCTION(stream_new)                     \
    FUNCTION(stream_peek)                    \
    FUNCTION(stream_set_moved_callback)      \
    FUNCTION(stream_set_read_callback)       \
    FUNCTION(stream_set_state_callback)      \
    FUNCTION(stream_unref)                   \
    FUNCTION(stream_writable_size)           \
    FUNCTION(stream_write)                   \
    FUNCTION(strerror)                       \
    FUNCTION(timeval_add)                    \
    FUNCTION(usec_to_bytes)

namespace kest {

/// The door to libpulse, which brings a dozen libraries for sound files with it.
/// They live in a plugin that the PulseThread loads when the window is painted.
/// The members are libpulse's own functions.
struct PulseFunctions {
#define KEST_PULSE_MEMBER(name) decltype(&pa_##name) name;
    KEST_PULSE_FUNCTIONS(KEST_PULSE_MEMBER)
#undef KEST_PULSE_MEMBER
};

/// Name of the C function by which the plugin hands out its PulseFunctions, which
/// live as long as the process. The name carries the interface's generation.
inline constexpr char pulsePluginEntry[] = "kest_pulse_functions_2";
using PulsePluginEntry = const PulseFunctions *(*)();

} // namespace kest
