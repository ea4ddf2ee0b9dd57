#pragma once

#include <QByteArray>
#include <QList>

#include <xcb/xcb.h>

namespace kest::testing {

/// What a test does and sees on an X11 display as another program would: makes
/// windows, turns to them as a task bar does, and looks at those of others.
class X11Desktop
{
public:
    X11Desktop();
    ~X11Desktop();
    Q_DISABLE_COPY_MOVE(X11Desktop)

    /// A mapped window of a program of this class ("XTerm"), managed by the
    /// window manager.
    xcb_window_t openWindow(const QByteArray &className);
    void closeWindow(xcb_window_t window);

    /// Asks the window manager to turn to the window, as a task bar does.
    void activate(xcb_window_t window);

    /// Asks the window's program to close it.
    void askToClose(xcb_window_t window);

    xcb_window_t activeWindow() const;
    bool isViewable(xcb_window_t window) const;

    /// Where its window manager's frame stands among all; higher is nearer.
    qsizetype stackingOf(xcb_window_t window) const;

    /// The largest window of this class, mapped or not; 0 when there is none.
    xcb_window_t findWindow(const QByteArray &className) const;

private:
    xcb_atom_t atom(const char *name) const;
    QByteArray property(xcb_window_t window, xcb_atom_t name) const;
    QList<xcb_window_t> children(xcb_window_t window) const;
    void send(xcb_window_t window, xcb_atom_t type, quint32 first, xcb_window_t to, quint32 mask);

    xcb_connection_t *m_xcb = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace kest::testing
