#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace kest {

class ActiveWindowWatch;

/// Sees to it that a window that is shown without activating gets no focus
/// also from window managers that know no _NET_WM_USER_TIME, as wlroots'
/// compositors do with what runs under their Xwayland.
///
/// While such a window is being mapped it says that it takes no input (ICCCM
/// 4.1.7, "No Input"); once the window manager lists it, it takes input as
/// before. Concerns every window whose property "_q_showWithoutActivating",
/// Qt's own, is true when it is shown. X11 alone. Main thread.
class UnfocusedShowing : public QObject
{
    Q_OBJECT

public:
    /// A window manager that lists nothing has decided by then.
    static constexpr std::chrono::milliseconds limit { 3000 };

    /// `watch` must outlive this object. Needs the QGuiApplication.
    explicit UnfocusedShowing(ActiveWindowWatch &watch, QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void refuseInput(quint32 window);
    void takeInputAgain();

    ActiveWindowWatch &m_watch;
    QTimer m_limit;
    quint32 m_window = 0; // the one that takes no input just now
};

} // namespace kest
