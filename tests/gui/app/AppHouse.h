#pragma once

#include "app/AppDelegate.h"
#include "app/UserDefaults.h"
#include "fakes/FakeAudioFilePlayer.h"
#include "fakes/FakeAudioFileRecorder.h"
#include "fakes/FakeAudioHardware.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeMailConnection.h"
#include "fakes/FakeMicrophoneTrial.h"
#include "fakes/FakeSleepHold.h"
#include "fakes/FakeWorkspace.h"
#include "fakes/RecordingAlertPresenter.h"
#include "fakes/RecordingMailTransport.h"
#include "platform/Platform.h"
#include "platform/linux/desktop/FreedesktopTrash.h"
#include "platform/linux/desktop/LinuxBookmarkStore.h"
#include "platform/linux/desktop/LinuxProcessInfo.h"
#include "platform/linux/desktop/PosixFolderContents.h"
#include "ui/MainWindowController.h"
#include "ui/controls/ReadoutField.h"

#include <QTemporaryDir>

namespace kest::test {

/// Notes what recordings it was asked to finish, whether there was a window
/// then, and how long the end waits for those that are being finished.
class NotingRecorderFactory : public FakeAudioFileRecorderFactory
{
public:
    int finishInterruptedRecordings(const QList<FolderURL> &folders, int milliseconds) override
    {
        finishFolders = folders;
        finishLimit = milliseconds;
        windowsThen = static_cast<int>(QApplication::topLevelWidgets().size());
        return 0;
    }
    void preload() override { ++preloads; }
    bool waitForFinished(int milliseconds) override
    {
        finishedWait = milliseconds;
        if (whileFinishing)
            whileFinishing();
        return true;
    }

    QList<FolderURL> finishFolders;
    int finishLimit = -1;
    int windowsThen = -1;
    int preloads = 0;
    int finishedWait = -1; ///< Milliseconds; -1 when nobody waited.
    std::function<void()> whileFinishing;
};

/// The delegate and all round it: real folders, settings and trash in a
/// throw-away home; sound, mail and the desktop are fakes.
struct AppHouse {
    AppHouse()
    {
        qputenv("HOME", home.path().toUtf8());
        platform.clock = std::make_unique<FakeClock>();
        platform.processInfo = std::make_unique<LinuxProcessInfo>();
        platform.bookmarkStore = std::make_unique<LinuxBookmarkStore>();
        platform.folderContents = std::make_unique<PosixFolderContents>();
        platform.trash = std::make_unique<FreedesktopTrash>();
        platform.audioHardware = std::make_unique<FakeAudioHardware>();
        platform.recorderFactory = std::make_unique<NotingRecorderFactory>();
        platform.player = std::make_unique<FakeAudioFilePlayer>();
        platform.microphoneTrial = std::make_unique<FakeMicrophoneTrial>();
        platform.mailTransport = std::make_unique<RecordingMailTransport>();
        platform.mailConnection = std::make_unique<FakeMailConnection>();
        platform.workspace = std::make_unique<FakeWorkspace>();
        platform.sleepHold = std::make_unique<FakeSleepHold>();
        hardware().name = QStringLiteral("Built-in Microphone");
        defaults = std::make_unique<UserDefaults>(settingsPath());
    }

    /// Initialises, makes the delegate and launches it; the window is there then.
    void launch()
    {
        delegate = std::make_unique<AppDelegate>(platform, *defaults, alerts);
        initialized = AppDelegate::initialize(platform, *defaults);
        delegate->applicationDidFinishLaunching();
        preloadsInLaunch = recorders().preloads;
        QCoreApplication::processEvents();
    }

    QString settingsPath() const { return home.filePath(QStringLiteral("config/kest/settings.ini")); }
    QString recordings() const { return home.filePath(QStringLiteral("Music/Kest")); }
    FakeAudioHardware &hardware() const { return static_cast<FakeAudioHardware &>(*platform.audioHardware); }
    FakeWorkspace &workspace() const { return static_cast<FakeWorkspace &>(*platform.workspace); }
    FakeSleepHold &sleep() const { return static_cast<FakeSleepHold &>(*platform.sleepHold); }
    NotingRecorderFactory &recorders() const { return static_cast<NotingRecorderFactory &>(*platform.recorderFactory); }
    MainWindowController &window() const { return *delegate->winController(); }
    bool isShown() const { return window().window()->isVisible(); }
    QString inputName() const { return window().inputNameField()->text(); }

    QTemporaryDir home;
    Platform platform;
    std::unique_ptr<UserDefaults> defaults;
    RecordingAlertPresenter alerts;
    bool initialized = false;
    int preloadsInLaunch = -1; ///< Before any event; -1 when it was not launched.
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace kest::test
