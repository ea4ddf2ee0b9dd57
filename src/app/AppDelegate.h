#pragma once

#include "app/FolderBookmarks.h"
#include "app/InputDeviceMonitor.h"
#include "app/OldRecordings.h"
#include "ui/ApplicationDelegate.h"

#include <QObject>

#include <memory>

class QTimer;

namespace kest {

class AlertPresenter;
class MainWindowController;
class StatusItem;
class UserDefaults;
struct Platform;

/// The application's life: it starts the main window, keeps it beside the mail
/// application, resolves the two folders for all others, and cleans up at the
/// end.
///
/// Order of calls: `initialize` once, before `applicationDidFinishLaunching`
/// (an object may be there already, and then hears what goes wrong with the
/// settings); that once, when the main loop is about to run;
/// `applicationShouldTerminate` once, at the end. Main thread.
class AppDelegate : public QObject, public ApplicationDelegate
{
    Q_OBJECT
    Q_PROPERTY(QString oldInputName READ oldInputName WRITE setOldInputName)

public:
    enum TerminateReply { TerminateCancel = 0, TerminateNow = 1, TerminateLater = 2 };

    /// All must outlive the delegate. `alerts` is what the window shows its
    /// alerts with.
    AppDelegate(Platform &platform, UserDefaults &defaults, AlertPresenter &alerts, QObject *parent = nullptr);
    ~AppDelegate() override;

    /// Makes the default folders and registers the settings. False when that
    /// failed: it was logged, and the application must end.
    static bool initialize(Platform &platform, UserDefaults &defaults);

    void applicationDidFinishLaunching();

    /// False: the main window's own close handler ends the application.
    bool applicationShouldTerminateAfterLastWindowClosed() const { return false; }

    /// Always TerminateNow, after everything that is to be done is done. Where
    /// old recordings are to be removed, one that still runs is stopped, and
    /// those that are being finished are waited for, within a limit, first.
    TerminateReply applicationShouldTerminate();

    /// An application came to the front, named as Workspace does. The main
    /// window is shown beside this application and the mail application, and
    /// hidden beside any other, unless its preferences sheet is showing. A
    /// recording goes on in the hidden window, and a notice of the desktop says
    /// so once for every hiding.
    void appWasActivated(const QString &identifier);

    /// Removes old recordings; `choice` is the value of `iWhenToDelete`, not 0.
    void deleteOldFilesChoice(qint64 choice);

    /// Opens the help page in the person's browser.
    void openHelp();

    std::optional<FolderURL> recordingsDirectoryURLWithError(Error *error) override;
    std::optional<FolderURL> attachmentsDirectoryURLWithError(Error *error) override;

    void timeToUpdateInputName();

    /// May throw; see InputDeviceMonitor.
    void updateInputName();
    std::optional<QString> nameOfDefaultInputDevice() const;

    /// The input device's name shown last; null at first.
    QString oldInputName() const { return m_inputMonitor.oldInputName(); }
    void setOldInputName(const QString &name) { m_inputMonitor.setOldInputName(name); }

    /// The one main window; null before launching, never replaced.
    MainWindowController *winController() const { return m_winController.get(); }

    /// Shows the window and gives it the focus: the person asked for it.
    void activate();

    static constexpr int inputNameInterval = 30'000; ///< ms

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The application is asked to end.
    void terminateRequested();

private:
    InputNameField inputNameField();
    void showInputName(int retryAfter);
    void finishInterruptedRecordings();
    void connectWindow();
    void offerStatusItem();
    void tellThatRecordingGoesOn();
    void tellTrouble(const QString &words);
    void tellWarning(const QString &words);
    void noticeIsSeen();
    void finishRecordings();

    Platform &m_platform;
    UserDefaults &m_defaults;
    AlertPresenter &m_alerts;
    FolderBookmarks m_folders;
    OldRecordings m_oldRecordings;
    InputDeviceMonitor m_inputMonitor;
    QTimer *m_inputNameTimer; // runs while there is a window to see the name in
    QStringList m_settingsTroubles; // told before there was a window
    QStringList m_toldWarnings;     // since the window was hidden
    std::unique_ptr<MainWindowController> m_winController;
    std::unique_ptr<StatusItem> m_statusItem; // null where the desktop has no place for it
};

} // namespace kest
