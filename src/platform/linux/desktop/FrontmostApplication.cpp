#include "platform/linux/desktop/FrontmostApplication.h"

#include "platform/Workspace.h"

namespace kest {

FrontmostApplication::FrontmostApplication(const QString &ownIdentifier, QObject *parent)
    : QObject(parent), m_ownIdentifier(ownIdentifier)
{
    m_graceTimer.setSingleShot(true);
    m_graceTimer.setInterval(grace);
    connect(&m_graceTimer, &QTimer::timeout, this, &FrontmostApplication::announce);
}

void FrontmostApplication::setOwnActive(bool active)
{
    m_ownActive = active;
    consider();
}

void FrontmostApplication::setMailFocused(bool focused)
{
    m_mailFocused = focused;
    consider();
}

void FrontmostApplication::setActiveWindow(const std::optional<ActiveWindow> &window)
{
    m_window = window;
    consider();
}

void FrontmostApplication::begin()
{
    m_begun = true;
    m_announced = identifier();
}

FrontmostApplication::Owner FrontmostApplication::owner() const
{
    if (m_window)
        return m_window->owner;
    if (m_ownActive)
        return Owner::Own;
    return m_mailFocused ? Owner::Mail : Owner::Other;
}

QString FrontmostApplication::identifier() const
{
    switch (owner()) {
    case Owner::Own:
        return m_ownIdentifier;
    case Owner::Mail:
        return mailApplicationIdentifier;
    case Owner::Other:
        break;
    }
    return m_window ? m_window->application : QString();
}

// Between two windows there is often a moment with none in front, so only the two friends are believed at once.
void FrontmostApplication::consider()
{
    if (!m_begun)
        return;
    if (owner() != Owner::Other) {
        m_graceTimer.stop();
        announce();
    } else if (!m_graceTimer.isActive()) {
        m_graceTimer.start();
    }
}

void FrontmostApplication::announce()
{
    const QString now = identifier();
    const bool fromAFriend = m_announced == m_ownIdentifier || m_announced == mailApplicationIdentifier;
    if (now == m_announced || (now.isEmpty() && !fromAFriend))
        return;
    m_announced = now;
    Q_EMIT activated(now);
}

} // namespace kest
