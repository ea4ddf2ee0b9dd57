#pragma once

#include <QObject>

#include <memory>

class QAction;
class QMenu;
class QSystemTrayIcon;

namespace kest {

class MainWindowController;

/// The program's item among the desktop's status items, where there is such a
/// place: whether it records, the way back to its window, Stop and Quit. It
/// never starts a recording: that takes a press in a window that one sees.
///
/// Main thread.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    /// Null where the desktop has no place for it. Asks the desktop, so it is
    /// for a moment in which nobody waits. `window` outlives it.
    static std::unique_ptr<StatusItem> make(MainWindowController &window);

    ~StatusItem() override;

Q_SIGNALS:
    void showRequested();
    void quitRequested();

private:
    explicit StatusItem(MainWindowController &window);
    void showState();

    MainWindowController &m_window;
    std::unique_ptr<QMenu> m_menu; // goes after the icon that shows it
    std::unique_ptr<QSystemTrayIcon> m_icon;
    QAction *m_stop = nullptr;
};

} // namespace kest
