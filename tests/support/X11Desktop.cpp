#include "support/X11Desktop.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace kest::testing {

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template<typename Reply> using Owned = std::unique_ptr<Reply, Free>;

} // namespace

X11Desktop::X11Desktop() : m_xcb(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_xcb))
        qFatal("There is no display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data->root;
}

X11Desktop::~X11Desktop()
{
    xcb_disconnect(m_xcb);
}

xcb_atom_t X11Desktop::atom(const char *name) const
{
    const auto cookie = xcb_intern_atom(m_xcb, false, static_cast<uint16_t>(std::strlen(name)), name);
    return Owned<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(m_xcb, cookie, nullptr))->atom;
}

QByteArray X11Desktop::property(xcb_window_t window, xcb_atom_t name) const
{
    const auto cookie = xcb_get_property(m_xcb, false, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_xcb, cookie, nullptr));
    if (!reply)
        return {};
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

QList<xcb_window_t> X11Desktop::children(xcb_window_t window) const
{
    const Owned<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(m_xcb, xcb_query_tree(m_xcb, window), nullptr));
    if (!reply)
        return {};
    const xcb_window_t *first = xcb_query_tree_children(reply.get());
    return QList<xcb_window_t>(first, first + xcb_query_tree_children_length(reply.get()));
}

xcb_window_t X11Desktop::openWindow(const QByteArray &className)
{
    const xcb_window_t window = xcb_generate_id(m_xcb);
    xcb_create_window(m_xcb, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const QByteArray halves = className.toLower() + '\0' + className + '\0';
    xcb_change_property(m_xcb, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<uint32_t>(halves.size()), halves.constData());
    xcb_map_window(m_xcb, window);
    xcb_flush(m_xcb);
    return window;
}

void X11Desktop::closeWindow(xcb_window_t window)
{
    xcb_destroy_window(m_xcb, window);
    xcb_flush(m_xcb);
}

void X11Desktop::send(xcb_window_t window, xcb_atom_t type, quint32 first, xcb_window_t to, quint32 mask)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    event.data.data32[0] = first;
    xcb_send_event(m_xcb, false, to, mask, reinterpret_cast<const char *>(&event));
    xcb_flush(m_xcb);
}

void X11Desktop::activate(xcb_window_t window)
{
    const quint32 byATaskBar = 2;
    send(window, atom("_NET_ACTIVE_WINDOW"), byATaskBar, m_root,
         XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void X11Desktop::askToClose(xcb_window_t window)
{
    send(window, atom("WM_PROTOCOLS"), atom("WM_DELETE_WINDOW"), window, XCB_EVENT_MASK_NO_EVENT);
}

xcb_window_t X11Desktop::activeWindow() const
{
    const QByteArray bytes = property(m_root, atom("_NET_ACTIVE_WINDOW"));
    xcb_window_t window = XCB_WINDOW_NONE;
    if (bytes.size() >= qsizetype(sizeof window))
        std::memcpy(&window, bytes.constData(), sizeof window);
    return window;
}

bool X11Desktop::isViewable(xcb_window_t window) const
{
    const auto cookie = xcb_get_window_attributes(m_xcb, window);
    const Owned<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(m_xcb, cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

qsizetype X11Desktop::stackingOf(xcb_window_t window) const
{
    xcb_window_t frame = window;
    for (;;) {
        const Owned<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(m_xcb, xcb_query_tree(m_xcb, frame), nullptr));
        if (!reply || reply->parent == m_root)
            return children(m_root).indexOf(frame);
        frame = reply->parent;
    }
}

xcb_window_t X11Desktop::findWindow(const QByteArray &className) const
{
    QList<xcb_window_t> waiting = children(m_root);
    xcb_window_t found = XCB_WINDOW_NONE;
    int largest = 100; // programs have hidden little windows too
    while (!waiting.isEmpty()) {
        const xcb_window_t window = waiting.takeLast();
        waiting += children(window);
        const Owned<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(m_xcb, xcb_get_geometry(m_xcb, window), nullptr));
        if (size && size->width > largest && property(window, XCB_ATOM_WM_CLASS).split('\0').value(1) == className) {
            largest = size->width;
            found = window;
        }
    }
    return found;
}

} // namespace kest::testing
