#include "platform/linux/desktop/ActiveWindowWatch.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

namespace kest {

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template<typename Reply> using Owned = std::unique_ptr<Reply, Free>;

// More windows than anybody has open.
constexpr uint32_t propertyWords = 4096;

} // namespace

struct ActiveWindowWatch::Connection {
    Connection(xcb_connection_t *opened, xcb_window_t rootWindow) : xcb(opened), root(rootWindow) { }
    ~Connection() { xcb_disconnect(xcb); }
    Q_DISABLE_COPY_MOVE(Connection)

    xcb_atom_t atom(const char *name) const
    {
        const auto cookie = xcb_intern_atom(xcb, false, static_cast<uint16_t>(std::strlen(name)), name);
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(xcb, cookie, nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    // Empty when the window or the property has gone meanwhile.
    QByteArray property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const
    {
        const auto cookie = xcb_get_property(xcb, false, window, name, type, 0, propertyWords);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(xcb, cookie, nullptr));
        if (!reply || reply->type != type)
            return {};
        return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                          xcb_get_property_value_length(reply.get()));
    }

    quint32 number(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const
    {
        const QByteArray bytes = property(window, name, type);
        quint32 value = 0;
        if (bytes.size() >= qsizetype(sizeof value))
            std::memcpy(&value, bytes.constData(), sizeof value);
        return value;
    }

    xcb_connection_t *xcb = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_atom_t activeWindow = atom("_NET_ACTIVE_WINDOW");
    xcb_atom_t clientList = atom("_NET_CLIENT_LIST");
    xcb_atom_t processId = atom("_NET_WM_PID");
    std::unique_ptr<QSocketNotifier> notifier;
};

std::unique_ptr<ActiveWindowWatch> ActiveWindowWatch::onDisplay(const char *displayName)
{
    int screenNumber = 0;
    xcb_connection_t *xcb = xcb_connect(displayName, &screenNumber);
    if (xcb_connection_has_error(xcb)) {
        xcb_disconnect(xcb);
        return nullptr;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(xcb, screens.data->root, XCB_CW_EVENT_MASK, &events);
    auto connection = std::make_unique<Connection>(xcb, screens.data->root);
    return std::unique_ptr<ActiveWindowWatch>(new ActiveWindowWatch(std::move(connection)));
}

ActiveWindowWatch::ActiveWindowWatch(std::unique_ptr<Connection> connection) : d(std::move(connection))
{
    d->notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(d->xcb), QSocketNotifier::Read);
    connect(d->notifier.get(), &QSocketNotifier::activated, this, &ActiveWindowWatch::readEvents);
    // Replies may have brought events with them, which the descriptor no longer announces.
    QMetaObject::invokeMethod(this, &ActiveWindowWatch::readEvents, Qt::QueuedConnection);
}

ActiveWindowWatch::~ActiveWindowWatch() = default;

void ActiveWindowWatch::readEvents()
{
    bool isChanged = false;
    bool isListChanged = false;
    while (const Owned<xcb_generic_event_t> event { xcb_poll_for_event(d->xcb) }) {
        if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
            continue;
        const xcb_atom_t name = reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->atom;
        isChanged |= name == d->activeWindow;
        isListChanged |= name == d->clientList;
    }
    if (xcb_connection_has_error(d->xcb))
        d->notifier->setEnabled(false);
    if (!isChanged && !isListChanged)
        return;
    // Asked for first, so that a listener that throws takes no later change along.
    QMetaObject::invokeMethod(this, &ActiveWindowWatch::readEvents, Qt::QueuedConnection);
    if (isListChanged)
        Q_EMIT listChanged();
    if (isChanged)
        Q_EMIT changed();
}

bool ActiveWindowWatch::lists(quint32 window) const
{
    const QByteArray bytes = d->property(d->root, d->clientList, XCB_ATOM_WINDOW);
    for (qsizetype at = 0; at + qsizetype(sizeof window) <= bytes.size(); at += sizeof window) {
        if (std::memcmp(bytes.constData() + at, &window, sizeof window) == 0)
            return true;
    }
    return false;
}

std::optional<ActiveWindowWatch::Window> ActiveWindowWatch::activeWindow() const
{
    const xcb_window_t id = d->number(d->root, d->activeWindow, XCB_ATOM_WINDOW);
    if (id == XCB_WINDOW_NONE)
        return {};
    const auto classHalves = d->property(id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).split('\0');
    return Window { id, d->number(id, d->processId, XCB_ATOM_CARDINAL),
                    d->number(id, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW), classHalves.value(1) };
}

} // namespace kest
