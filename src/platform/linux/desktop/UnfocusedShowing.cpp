#include "platform/linux/desktop/UnfocusedShowing.h"

#include "platform/linux/desktop/ActiveWindowWatch.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace kest {

namespace {

// ICCCM 4.1.2.4: the first word of WM_HINTS says which of the others count, the second is the input field.
constexpr std::size_t hintsWords = 9;
constexpr uint32_t inputCounts = 1;

using Words = std::vector<uint32_t>;

// Qt's own connection, so that all arrives in order with Qt's request to map the window.
xcb_connection_t *display()
{
    return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_atom_t atom(const char *name)
{
    const auto cookie = xcb_intern_atom(display(), false, static_cast<uint16_t>(std::strlen(name)), name);
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(display(), cookie, nullptr), &std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

Words words(xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
{
    const auto cookie = xcb_get_property(display(), false, window, name, type, 0, 64);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(display(), cookie, nullptr), &std::free);
    if (!reply || reply->type != type || reply->format != 32)
        return {};
    const auto *first = static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
    return Words(first, first + reply->value_len);
}

void setWords(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, const Words &words)
{
    xcb_change_property(display(), XCB_PROP_MODE_REPLACE, window, name, type, 32,
                        static_cast<uint32_t>(words.size()), words.data());
}

void setTakesInput(xcb_window_t window, bool takes)
{
    Words hints = words(window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS);
    hints.resize(hintsWords);
    hints[0] |= inputCounts;
    hints[1] = takes ? 1 : 0;
    setWords(window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, hints);

    const xcb_atom_t protocolsName = atom("WM_PROTOCOLS");
    const xcb_atom_t takeFocus = atom("WM_TAKE_FOCUS");
    Words protocols = words(window, protocolsName, XCB_ATOM_ATOM);
    std::erase(protocols, takeFocus);
    if (takes)
        protocols.push_back(takeFocus);
    setWords(window, protocolsName, XCB_ATOM_ATOM, protocols);
    xcb_flush(display());
}

} // namespace

UnfocusedShowing::UnfocusedShowing(ActiveWindowWatch &watch, QObject *parent) : QObject(parent), m_watch(watch)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(limit);
    connect(&m_limit, &QTimer::timeout, this, &UnfocusedShowing::takeInputAgain);
    connect(&watch, &ActiveWindowWatch::listChanged, this, [this] {
        if (m_window && m_watch.lists(m_window))
            takeInputAgain();
    });
    qApp->installEventFilter(this);
}

bool UnfocusedShowing::eventFilter(QObject *watched, QEvent *event)
{
    // Comes before Qt asks for the mapping.
    if (event->type() == QEvent::Show && watched->isWindowType() && watched->property("_q_showWithoutActivating").toBool())
        refuseInput(static_cast<quint32>(static_cast<QWindow *>(watched)->winId()));
    return false;
}

void UnfocusedShowing::refuseInput(quint32 window)
{
    if (m_window && m_window != window)
        takeInputAgain();
    m_window = window;
    setTakesInput(window, false);
    m_limit.start();
}

void UnfocusedShowing::takeInputAgain()
{
    m_limit.stop();
    setTakesInput(m_window, true);
    m_window = 0;
}

} // namespace kest
