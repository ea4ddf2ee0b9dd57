#include "app/Application.h"

#include <QLoggingCategory>

#include <exception>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcApp, "kest.app")

} // namespace

Application::Application(int &argc, char **argv) : QApplication(argc, argv)
{
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &exception) {
        qCCritical(lcApp, "An exception was raised and not handled: %s", exception.what());
    }
    return false;
}

void Application::terminate()
{
    if (m_terminating)
        return;
    m_terminating = true;
    try {
        if (m_shouldTerminate)
            m_shouldTerminate();
    } catch (const std::exception &exception) {
        qCCritical(lcApp, "An exception was raised at the end: %s", exception.what());
    }
    exit(0);
}

// In place of the toolkit's own way, which first closes all windows and gives up when one declines.
bool Application::event(QEvent *event)
{
    if (event->type() != QEvent::Quit)
        return QApplication::event(event);
    terminate();
    event->accept();
    return true;
}

} // namespace kest
