// Starts a command and prints the milliseconds until its first window is drawn into:
//
//     window_shown COMMAND [ARGUMENT...]
//
// then stays until its standard input ends, so that the caller can look at the running program (its process id is
// printed second), and ends it. The window counts as shown when the server reports damage in a mapped top-level window,
// that is when the first picture is there, not only an empty frame.

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};

constexpr int smallestSide = 50; // helper windows of toolkits are smaller

bool isProperWindow(xcb_connection_t *connection, xcb_window_t window)
{
    const auto cookie = xcb_get_geometry(connection, window);
    const std::unique_ptr<xcb_get_geometry_reply_t, Free> geometry(
        xcb_get_geometry_reply(connection, cookie, nullptr));
    return geometry && geometry->width >= smallestSide && geometry->height >= smallestSide;
}

void watch(xcb_connection_t *connection, xcb_window_t window)
{
    xcb_damage_create(connection, xcb_generate_id(connection), window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(connection);
}

bool waitForPicture(xcb_connection_t *connection, uint8_t firstDamageEvent)
{
    while (auto *raw = xcb_wait_for_event(connection)) {
        const std::unique_ptr<xcb_generic_event_t, Free> event(raw);
        const auto type = event->response_type & 0x7f;
        if (type == XCB_MAP_NOTIFY) {
            const auto window = reinterpret_cast<xcb_map_notify_event_t *>(event.get())->window;
            if (isProperWindow(connection, window))
                watch(connection, window);
        } else if (type == firstDamageEvent + XCB_DAMAGE_NOTIFY) {
            return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    auto *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection))
        return 3;
    const auto *damage = xcb_get_extension_data(connection, &xcb_damage_id);
    std::free(xcb_damage_query_version_reply(connection, xcb_damage_query_version(connection, 1, 1), nullptr));
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));

    const auto begin = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    alarm(20);
    if (!waitForPicture(connection, damage->first_event))
        return 4;
    std::printf("%.1f %d\n", std::chrono::duration<double, std::milli>(Clock::now() - begin).count(), child);
    std::fflush(stdout);
    while (std::getchar() != EOF) { }
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    return 0;
}
