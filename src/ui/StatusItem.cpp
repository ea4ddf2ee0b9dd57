#include "ui/StatusItem.h"

#include "ui/MainWindowController.h"
#include "ui/controls/Icons.h"

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>

namespace kest {

std::unique_ptr<StatusItem> StatusItem::make(MainWindowController &window)
{
    return QSystemTrayIcon::isSystemTrayAvailable() ? std::unique_ptr<StatusItem>(new StatusItem(window)) : nullptr;
}

StatusItem::StatusItem(MainWindowController &window)
    : m_window(window)
    , m_menu(std::make_unique<QMenu>())
    , m_icon(std::make_unique<QSystemTrayIcon>(iconNamed(QStringLiteral("org.kest.Kest"))))
{
    connect(m_menu->addAction(tr("Show Kest")), &QAction::triggered, this, &StatusItem::showRequested);
    m_stop = m_menu->addAction(tr("Stop Recording"));
    connect(m_stop, &QAction::triggered, &m_window, &MainWindowController::audioRecordingStop);
    m_menu->addSeparator();
    connect(m_menu->addAction(tr("Quit Kest")), &QAction::triggered, this, &StatusItem::quitRequested);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
            Q_EMIT showRequested();
    });
    connect(&m_window, &MainWindowController::recordingActiveChanged, this, &StatusItem::showState);
    connect(&m_window, &MainWindowController::recordingGoesOnChanged, this, &StatusItem::showState);
    m_icon->setContextMenu(m_menu.get());
    showState();
    m_icon->show();
}

StatusItem::~StatusItem() = default;

void StatusItem::showState()
{
    const bool active = m_window.recordingActive();
    const bool paused = active && m_window.audioRecorder() && m_window.audioRecorder()->recordingPaused();
    m_stop->setVisible(active);
    m_icon->setToolTip(paused                         ? tr("Kest – paused")
                           : m_window.recordingGoesOn() ? tr("Kest – recording")
                                                        : tr("Kest"));
}

} // namespace kest
