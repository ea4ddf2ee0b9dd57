#pragma once

#include "app/UserDefaults.h"
#include "fakes/FakeAudioFilePlayer.h"
#include "fakes/FakeAudioFileRecorder.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeMailConnection.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/RecordingAlertPresenter.h"
#include "fakes/RecordingMailTransport.h"
#include "platform/ProcessInfo.h"
#include "platform/linux/desktop/FreedesktopTrash.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "platform/linux/desktop/PosixFolderContents.h"
#include "ui/ApplicationDelegate.h"
#include "ui/MainWindowController.h"
#include "ui/PreferencesWindowController.h"

#include <QDialog>
#include <QTemporaryDir>

#include <memory>

namespace kest::test {

/// Two folders, there or not.
class FakeDelegate : public ApplicationDelegate
{
public:
    std::optional<FolderURL> recordingsDirectoryURLWithError(Error *error) override;
    std::optional<FolderURL> attachmentsDirectoryURLWithError(Error *error) override;

    std::optional<FolderURL> recordings;
    std::optional<FolderURL> attachments;
};

class FakeProcessInfo : public ProcessInfo
{
public:
    std::optional<OperatingSystemVersion> operatingSystemVersion() const override { return version; }

    std::optional<OperatingSystemVersion> version = OperatingSystemVersion{10, 15, 0};
};

/// Everything round the main window, in a throw-away folder, and the window.
struct WindowHouse {
    WindowHouse();
    ~WindowHouse();

    /// Makes the window anew, as a start of the program does.
    void open();

    /// Opens it and waits until it is on the screen.
    void openAndShow();

    /// The control with this accessible name; fatal when there is not exactly
    /// one.
    template <typename Widget = QWidget>
    Widget *find(const QString &accessibleName) const
    {
        return qobject_cast<Widget *>(widgetNamed(accessibleName));
    }

    /// Opens the preferences by their control and waits until they are on the
    /// screen.
    QDialog *openPreferences() const;

    /// Clicks the control with the pointer.
    void click(const QString &accessibleName) const;
    bool isEnabled(const QString &accessibleName) const { return find(accessibleName)->isEnabled(); }
    QString notice() const;
    FolderURL folder(const QString &name) const;

    /// Begins a recording, with its time on show.
    void record() const;

    /// Writes a file into the folder of prepared messages.
    void writePrepared(const QString &name, const QByteArray &content) const;

    /// Puts the window as if this prepared message was chosen in its menu.
    void choosePrepared(const QString &name) const;

    QTemporaryDir home;
    FakeClock clock;
    FakeProcessInfo processInfo;
    FakeAudioFileRecorderFactory recorders;
    FakeAudioFilePlayer player;
    RecordingMailTransport mail;
    MailTransport *otherMail = nullptr; ///< Used in place of `mail` when set.
    FakeMailConnection connection;
    MailConnection *otherConnection = nullptr; ///< Used in place of `connection` when set.
    RecordingAlertPresenter alerts;
    FakeDelegate delegate;
    PosixFolderContents folderContents;
    FreedesktopTrash trash; ///< That of the throw-away home.
    ApplicationDelegate *otherDelegate = nullptr; ///< Used in place of `delegate` when set.
    LinuxBookmarkStore bookmarks;
    FakeWorkspace workspace;
    std::unique_ptr<UserDefaults> settings;
    int beeps = 0;
    std::chrono::milliseconds finishTimeLimit{30000};
    std::unique_ptr<MainWindowController> controller;

private:
    QWidget *widgetNamed(const QString &accessibleName) const;
};

} // namespace kest::test
