#include "app/Welcome.h"

#include "platform/Platform.h"
#include "ui/MainWindowController.h"
#include "ui/WelcomeSheet.h"

#include <QTimer>

namespace kest {

Welcome::Welcome(Platform &platform, UserDefaults &defaults, WelcomeMarker marker, QObject *parent)
    : QObject(parent)
    , m_platform(platform)
    , m_defaults(defaults)
    , m_marker(std::move(marker))
{
}

void Welcome::showSoon(MainWindowController &window)
{
    if (m_marker.isFirstStart())
        QTimer::singleShot(delay, &window, [this, &window] { show(window); });
}

void Welcome::show(MainWindowController &window)
{
    // Somebody who records already needs no welcome, and the microphone is theirs.
    if (window.recordingActive())
        return m_marker.write();
    m_sheet = new WelcomeSheet({*m_platform.microphoneTrial, *m_platform.mailConnection, m_defaults}, window.window());
    connect(m_sheet, &QDialog::finished, this, &Welcome::end);
    connect(&window, &MainWindowController::recordingActiveChanged, m_sheet, &QDialog::accept);
    m_sheet->begin();
}

WelcomeSheet *Welcome::sheet() const
{
    return m_sheet;
}

void Welcome::end()
{
    m_marker.write();
    m_sheet->deleteLater();
    m_sheet = nullptr;
}

} // namespace kest
