#pragma once

#include "platform/Workspace.h"
#include "platform/linux/desktop/ActiveWindowWatch.h"
#include "platform/linux/desktop/DesktopNotice.h"
#include "platform/linux/desktop/FrontmostApplication.h"
#include "platform/linux/desktop/UnfocusedShowing.h"

#include <memory>

namespace kest {

class MailTransport;

/// The Linux desktop.
///
/// Which application is in front it learns from Qt (this application), from the
/// mail application's own signals, which work on every desktop, and on X11 from
/// the window manager. On a pure Wayland session a window cannot be shown
/// without taking the focus, so there it never says that another application
/// came to the front, and the window stays.
class LinuxWorkspace : public Workspace
{
    Q_OBJECT

public:
    /// `mail` must outlive this object. Needs the QGuiApplication; watching
    /// begins when the event loop runs.
    explicit LinuxWorkspace(MailTransport &mail, QObject *parent = nullptr);

    QString ownIdentifier() const override;
    bool openURL(const QUrl &url) override;
    void showNotice(const QString &title, const QString &text) override { m_notice.show(title, text); }
    void withdrawNotice() override { m_notice.withdraw(); }

private:
    void begin();
    void announce(const QString &identifier);
    void readActiveWindow();
    FrontmostApplication::ActiveWindow described(const ActiveWindowWatch::Window &window) const;

    DesktopNotice m_notice;
    FrontmostApplication m_frontmost;
    std::unique_ptr<ActiveWindowWatch> m_watch; // null where the display is not X11
    std::unique_ptr<UnfocusedShowing> m_showing; // null where the one above is
    QByteArray m_mailClass;                     // how a mail application's window class begins, in lower case
};

} // namespace kest
