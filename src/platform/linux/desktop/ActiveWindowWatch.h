#pragma once

#include <QByteArray>
#include <QObject>

#include <memory>
#include <optional>

namespace kest {

/// Watches which window is active on an X11 display (also Xwayland's), by the
/// window manager's _NET_ACTIVE_WINDOW, and which it manages, by its
/// _NET_CLIENT_LIST (Extended Window Manager Hints 1.5).
///
/// On a connection of its own. Main thread.
class ActiveWindowWatch : public QObject
{
    Q_OBJECT

public:
    struct Window {
        quint32 id = 0;
        quint32 processId = 0;     ///< 0 where the window does not tell.
        quint32 transientFor = 0;  ///< The window that it belongs to; 0 for none.
        QByteArray className;      ///< The second half of WM_CLASS.
    };

    /// Null when there is no such display. `displayName` null: the one that the
    /// environment names.
    static std::unique_ptr<ActiveWindowWatch> onDisplay(const char *displayName = nullptr);
    ~ActiveWindowWatch() override;

    /// The active window; nothing while there is none, or where no window
    /// manager tells.
    std::optional<Window> activeWindow() const;

    /// The window manager has taken the window on, and shows it or has
    /// minimised it.
    bool lists(quint32 window) const;

Q_SIGNALS:
    void changed();
    void listChanged();

private:
    struct Connection;
    explicit ActiveWindowWatch(std::unique_ptr<Connection> connection);
    void readEvents();

    std::unique_ptr<Connection> d;
};

} // namespace kest
