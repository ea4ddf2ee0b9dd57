#pragma once

#include <QApplication>

#include <chrono>
#include <functional>

namespace kest {

class AlertPresenter;
class ApplicationDelegate;
class AudioFilePlayer;
class AudioFileRecorderFactory;
class BookmarkStore;
class Clock;
class FolderContents;
class MailConnection;
class MailTransport;
class ProcessInfo;
class Trash;
class UserDefaults;
class Workspace;

/// What the main window needs of the rest. All must outlive the controller.
struct MainWindowDependencies {
    Clock &clock;
    ProcessInfo &processInfo;
    AudioFileRecorderFactory &recorderFactory;
    AudioFilePlayer &player;
    MailTransport &mailTransport;
    MailConnection &mailConnection;
    AlertPresenter &alertPresenter;
    UserDefaults &userDefaults;
    ApplicationDelegate &delegate;
    FolderContents &folderContents;
    Trash &trash;
    BookmarkStore &bookmarkStore;
    Workspace &workspace;

    std::function<void()> beep = [] { QApplication::beep(); };

    /// How long a command waits for a recording to be finished.
    std::chrono::milliseconds finishTimeLimit{30000};
};

} // namespace kest
