#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace kest {

/// Brings the window before a person who started the program again, on Wayland.
///
/// There a window that asks for the focus gets it only with a token from the
/// launcher (xdg-activation-v1), which a terminal or a key binding seldom
/// gives, and it stays where it is, be it on another workspace. A window that
/// is shown anew is put where the person looks. On X11 nothing is done. Main
/// thread.
class WaylandReturn : public QObject
{
    Q_OBJECT

public:
    /// Within this time a compositor has given the focus, if it does.
    static constexpr std::chrono::milliseconds patience { 300 };

    /// Needs the QGuiApplication.
    explicit WaylandReturn(QObject *parent = nullptr);

    /// To be called when the window has asked for the focus.
    void begin();

private:
    static void showAnew();

    QTimer m_patience;
};

} // namespace kest
