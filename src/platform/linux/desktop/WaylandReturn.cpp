#include "platform/linux/desktop/WaylandReturn.h"

#include <QGuiApplication>
#include <QWindow>

namespace kest {

WaylandReturn::WaylandReturn(QObject *parent) : QObject(parent)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, &WaylandReturn::showAnew);
}

void WaylandReturn::begin()
{
    if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        m_patience.start();
}

void WaylandReturn::showAnew()
{
    // What is open over the window would not come along.
    if (QGuiApplication::applicationState() == Qt::ApplicationActive || QGuiApplication::modalWindow())
        return;
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow *window : windows) {
        if (window->isVisible() && window->type() == Qt::Window) {
            window->hide();
            window->show();
        }
    }
}

} // namespace kest
