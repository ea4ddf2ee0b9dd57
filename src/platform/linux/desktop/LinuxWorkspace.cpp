#include "platform/linux/desktop/LinuxWorkspace.h"

#include "platform/MailTransport.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

#include <unistd.h>

namespace kest {

namespace {

const QString applicationIdentifier = QStringLiteral("org.kest.Kest");

bool isOwnWindow(quint32 id)
{
    const auto windows = QGuiApplication::allWindows();
    return std::ranges::any_of(windows, [id](QWindow *window) { return window->handle() && window->winId() == id; });
}

} // namespace

LinuxWorkspace::LinuxWorkspace(MailTransport &mail, QObject *parent)
    : Workspace(parent), m_frontmost(applicationIdentifier), m_mailClass("thunderbird")
{
    connect(&m_frontmost, &FrontmostApplication::activated, this, &LinuxWorkspace::announce);
    connect(&mail, &MailTransport::mailApplicationFocusGained, this, [this] { m_frontmost.setMailFocused(true); });
    connect(&mail, &MailTransport::mailApplicationFocusLost, this, [this] { m_frontmost.setMailFocused(false); });
    connect(&mail, &MailTransport::mailApplicationVanished, this, [this] { m_frontmost.setMailFocused(false); });
    // Mail applications name their windows as they name themselves on the bus.
    connect(&mail, &MailTransport::mailApplicationAppeared, this, [this](const QString &name) {
        m_mailClass = name.mid(name.lastIndexOf(u'.') + 1).toLower().toUtf8();
    });
    QMetaObject::invokeMethod(this, &LinuxWorkspace::begin, Qt::QueuedConnection);
}

QString LinuxWorkspace::ownIdentifier() const
{
    return applicationIdentifier;
}

bool LinuxWorkspace::openURL(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

void LinuxWorkspace::begin()
{
    if (QGuiApplication::platformName() == QStringLiteral("xcb"))
        m_watch = ActiveWindowWatch::onDisplay();
    // Queued, because Qt emits it outside of notify: what a listener throws must find somebody who logs it.
    connect(
        qApp, &QGuiApplication::applicationStateChanged, this,
        [this](Qt::ApplicationState state) { m_frontmost.setOwnActive(state == Qt::ApplicationActive); },
        Qt::QueuedConnection);
    m_frontmost.setOwnActive(QGuiApplication::applicationState() == Qt::ApplicationActive);
    if (m_watch) {
        m_showing = std::make_unique<UnfocusedShowing>(*m_watch);
        connect(m_watch.get(), &ActiveWindowWatch::changed, this, &LinuxWorkspace::readActiveWindow);
        readActiveWindow();
    }
    m_frontmost.begin();
}

void LinuxWorkspace::announce(const QString &identifier)
{
    const bool isFriend = identifier == applicationIdentifier || identifier == mailApplicationIdentifier;
    // There the window could not come back by itself.
    const bool hiddenIsLost = QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
    if (isFriend || !hiddenIsLost)
        Q_EMIT applicationActivated(identifier);
}

void LinuxWorkspace::readActiveWindow()
{
    const auto window = m_watch->activeWindow();
    m_frontmost.setActiveWindow(window ? std::optional(described(*window)) : std::nullopt);
}

FrontmostApplication::ActiveWindow LinuxWorkspace::described(const ActiveWindowWatch::Window &window) const
{
    using enum FrontmostApplication::Owner;
    // A dialog of the desktop (a folder chooser) belongs to the window that it stands over.
    if (isOwnWindow(window.id) || isOwnWindow(window.transientFor)
        || window.processId == static_cast<quint32>(::getpid()))
        return { Own, {} };
    if (window.className.toLower().startsWith(m_mailClass))
        return { Mail, {} };
    return { Other, QString::fromUtf8(window.className) };
}

} // namespace kest
