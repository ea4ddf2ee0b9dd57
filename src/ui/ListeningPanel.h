#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/FileURL.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <optional>

namespace Ui {
class MainWindow;
}

namespace kest {

class Trash;

/// The place in the expanded window to be sure before sending: plays the last
/// recording, shows its shape, length, size and folder, throws it away and takes
/// it out of the trash again, and gives it to others.
///
/// Nothing here can be worked while it is not on the screen, while a command is
/// running or while a recording is under way; what plays then, pauses. Main
/// thread; `ui`, `player` and `trash` outlive it.
class ListeningPanel : public QObject
{
    Q_OBJECT

public:
    ListeningPanel(Ui::MainWindow &ui, AudioFilePlayer &player, Trash &trash, QObject *parent = nullptr);

    /// A recording is under way, nothing is to be said of an earlier one. What
    /// plays stops at once.
    void showRecordingUnderWay(const FileURL &file);

    /// The recording is finished. `seconds` is its length; nothing while that is
    /// not known. A file that is not there any more counts as none.
    void showRecording(const FileURL &file, std::optional<double> seconds);

    /// A message has taken it; it is still offered.
    void showUsed();

    /// The same recording under another name.
    void showMoved(const FileURL &to);

    /// The recording on show, also one that was discarded; empty when there is
    /// none.
    const FileURL &recording() const { return m_recording; }

    /// True from Discard until Undo or the next recording: there is nothing to
    /// send.
    bool isDiscarded() const { return m_state == State::Discarded; }

    /// True once a message has taken it.
    bool isUsed() const { return m_used; }

    /// A command is running that may want the recording.
    void setBusy(bool busy);

Q_SIGNALS:
    /// The recording went to the trash, or came back out of it.
    void discarded();
    void restored();

    /// A folder is to be shown in the desktop's own program.
    void openURLRequested(const QUrl &url);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class State { Nothing, UnderWay, Ready, Discarded };

    void connectControls();
    void connectPlayer();
    void setState(State state);
    void update();
    void updateHeading();
    void updateFacts();
    void openWhenSeen();
    bool isUsable() const;
    void playOrPause();
    void playingChanged(bool playing);
    void discard();
    void undoDiscard();
    void tell(const QString &words, const QString &detail);

    Ui::MainWindow &m_ui;
    AudioFilePlayer &m_player;
    Trash &m_trash;
    QTimer m_positionTimer;
    State m_state = State::Nothing;
    FileURL m_recording;
    FileURL m_inTrash; // where it lies after Discard
    std::optional<double> m_seconds;
    bool m_used = false;
    bool m_busy = false;
    bool m_opened = false; // the player has the recording
};

} // namespace kest
