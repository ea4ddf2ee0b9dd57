#pragma once

#include "audio/AudioRecorder.h"
#include "mail/ASMail.h"
#include "mail/MailController.h"
#include "platform/BoundedLookUps.h"
#include "ui/MainWindowDependencies.h"
#include "ui/NoticePlace.h"
#include "ui/WindowFrame.h"

#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>

namespace Ui {
class MainWindow;
}

namespace kest {

class Bindings;
class ControlButton;
class KestLevelsView;
class ListeningPanel;
struct MessageDraft;
class PreferencesWindowController;
class PullDownButton;
class PullDownMenu;
class ReadoutField;
class RecordingWarnings;
class WindowSizer;

/// The one small window: recording controls, time and level, the commands that
/// make mail of a recording.
///
/// The controls of the layout file are bound to the properties here, so every
/// change goes through its property. Commands run on the main thread and return
/// when they are done; while one waits, the window paints, takes no input, and
/// every further command does nothing.
class MainWindowController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool recordingActive READ recordingActive WRITE setRecordingActive NOTIFY recordingActiveChanged)
    Q_PROPERTY(bool sheetShowing READ sheetShowing WRITE setSheetShowing NOTIFY sheetShowingChanged)
    Q_PROPERTY(bool recordingExists READ recordingExists WRITE setRecordingExists NOTIFY recordingExistsChanged)
    Q_PROPERTY(bool canReplyOrCompose READ canReplyOrCompose WRITE setCanReplyOrCompose NOTIFY canReplyOrComposeChanged)
    Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)
    Q_PROPERTY(double expandedHeight READ expandedHeight WRITE setExpandedHeight)
    Q_PROPERTY(double minHeight READ minHeight WRITE setMinHeight)
    Q_PROPERTY(QString attachmentName READ attachmentName WRITE setAttachmentName)
    Q_PROPERTY(bool messageChosen READ messageChosen NOTIFY messageChosenChanged)
    Q_PROPERTY(QString attachmentsMenuImage READ attachmentsMenuImage WRITE setAttachmentsMenuImage)
    Q_PROPERTY(QString attachmentsMenuImageChosen READ attachmentsMenuImageChosen WRITE setAttachmentsMenuImageChosen)
    Q_PROPERTY(QString recordingTime READ recordingTime WRITE setRecordingTime NOTIFY recordingTimeChanged)
    Q_PROPERTY(kest::ASMail *mailASObject READ mailASObject WRITE setMailASObject)

public:
    /// Builds the window, which is not yet shown.
    explicit MainWindowController(const MainWindowDependencies &dependencies, QObject *parent = nullptr);
    ~MainWindowController() override;

    /// The window; owned here.
    QWidget *window() const { return m_window.get(); }

    /// Shows the window and gives it the focus.
    void showWindow();

    /// Shows the window in front of the others, without the focus.
    void orderFront();

    /// Hides the window.
    void orderOut();

    /// True from a successful Record until Stop.
    bool recordingActive() const { return m_recordingActive; }
    void setRecordingActive(bool active);

    /// True while sound is being recorded: not while paused, nor after a trouble.
    bool recordingGoesOn() const { return m_recordingGoesOn; }

    /// True while the preferences sheet is shown.
    bool sheetShowing() const { return m_sheetShowing; }
    void setSheetShowing(bool showing);

    /// True from Record until a command has used the file.
    bool recordingExists() const { return m_recordingExists; }
    void setRecordingExists(bool exists);

    bool canReplyOrCompose() const { return m_canReplyOrCompose; }
    void setCanReplyOrCompose(bool can);

    /// True while a command waits for the mail application or for a recording.
    bool busy() const { return m_busy; }

    /// Points.
    double expandedHeight() const { return m_heights.expandedHeight; }
    void setExpandedHeight(double height) { m_heights.expandedHeight = height; }
    double minHeight() const { return m_heights.minHeight; }
    void setMinHeight(double height) { m_heights.minHeight = height; }

    /// The chosen prepared message's file name as it is stored; null: none.
    const QString &attachmentName() const { return m_attachmentName; }
    void setAttachmentName(const QString &name);

    /// Whether a prepared message is chosen, which can be sent until it is used
    /// or withdrawn.
    bool messageChosen() const { return !m_attachmentName.isNull(); }

    const QString &attachmentsMenuImage() const { return m_attachmentsMenuImage; }
    void setAttachmentsMenuImage(const QString &name) { m_attachmentsMenuImage = name; }
    const QString &attachmentsMenuImageChosen() const { return m_attachmentsMenuImageChosen; }
    void setAttachmentsMenuImageChosen(const QString &name) { m_attachmentsMenuImageChosen = name; }

    /// The text of the time field; null before the first Record when Stop or
    /// Pause was called.
    const QString &recordingTime() const { return m_recordingTime; }
    void setRecordingTime(const QString &time);

    /// The layout file's own instance; null only when it names none.
    ASMail *mailASObject() const { return m_mailASObject; }
    void setMailASObject(ASMail *mail) { m_mailASObject = mail; }

    MailController *mailController() const { return m_mailController.get(); }

    /// The current recording; null before the first Record.
    AudioRecorder *audioRecorder() const { return m_audioRecorder.get(); }

    /// The status timer; null when none was started yet.
    QTimer *recordingStatusTimer() const { return m_recordingStatusTimer; }

    ReadoutField *inputNameField() const;
    ReadoutField *timeField() const;
    ControlButton *pauseResumeButton() const;
    ControlButton *disclosureTriangle() const;
    PullDownButton *attachmentPopUp() const;
    PullDownMenu *attachmentsMenu() const;
    KestLevelsView *levelsView() const;

    /// The process's one preferences sheet, where this window made it; null
    /// before the first showing.
    PreferencesWindowController *preferences() const { return m_preferences.get(); }

    /// Where others put words for the person.
    NoticePlace &notices() { return m_notices; }

public Q_SLOTS:
    void windowToggleExpanded();
    void disclosureTriangleClose();
    void disclosureTriangleOpen();

    /// Shows the preferences as a sheet over the window. One sheet serves the
    /// whole process; it is made at the first call.
    void showPrefsSheet();
    void openHelp();

    void audioRecordingRecord();
    void audioRecordingPauseResume();
    void audioRecordingStop();
    void audioRecordingUpdateTimeWithTimer();

    void mailComposeNewMessage();

    /// Answers the last of the messages selected in the mail application with
    /// the recording, or the chosen prepared message, and takes the recording
    /// as used. Where the mail application yields no message or no reply to
    /// build on, it throws (std::out_of_range, std::invalid_argument), and what
    /// was to be sent is there for another try.
    void mailReplyToSelectedMessages();
    void mailReplyAllToSelectedMessages();
    void mailReplyToSelectedMessagesReplyingToAll(bool replyingToAll);

    /// Gives the file the name of who sent the message answered, as
    /// recordingNameWithSender() makes it, and returns where it lies then. A
    /// move that fails is silent by design, and the file keeps its name: a
    /// reply must not fail for a name. Never replaces another file, and never
    /// moves it into another folder.
    kest::FileURL includeSender(const QString &sender, const kest::FileURL &inNameOfURL);

    /// Lists the prepared messages anew; called before the menu opens.
    void menuNeedsUpdate();

    /// Chooses the file of the item with this title, or withdraws the choice when it is the chosen
    /// one. Withdrawing makes `canReplyOrCompose` false, recording or not.
    void attachmentChosen(const QString &title);

    /// Withdraws the choice of a prepared message. Leaves `canReplyOrCompose`
    /// and the menu's check marks as they are.
    void removeAttachmentMenuSelection();

Q_SIGNALS:
    void recordingActiveChanged(bool active);
    void sheetShowingChanged(bool showing);
    void recordingExistsChanged(bool exists);
    void canReplyOrComposeChanged(bool can);
    void recordingTimeChanged(const QString &time);
    void busyChanged(bool busy);
    void messageChosenChanged(bool chosen);

    /// The window was closed: the application is to end.
    void terminateRequested();

    void helpRequested();

    void recordingGoesOnChanged(bool goesOn);

    /// The window says why the recording ended, or never began; `words` is the
    /// sentence. For those who speak to the person while it is hidden.
    void recordingTroubleTold(const QString &words);

    /// The same, of one that goes on.
    void recordingWarned(const QString &words);

    /// A file or folder is to be opened in the desktop's own program.
    void openURLRequested(const QUrl &url);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void restoreIfMinimized();
    class BusyScope;
    struct MailSettings;
    struct ComposeSettings;
    struct ReplySettings;

    void loadWindow();
    void giveIcon();
    void applyFonts();
    void applyColors();
    void awakeFromNib();
    void windowDidLoad();
    void applyTextColorRule();
    void hideCollapsedPart();
    void setDisclosureTriangle(const QString &image, QChar keyEquivalent, Qt::Key key, const QString &name);
    void windowWillClose();

    std::optional<FolderURL> recordingsFolder();
    void tellDirectoryNotFound();
    void connectRecorder();
    void afterRecordingStarted(bool recordHadFocus);
    void tellTrouble(RecordingTrouble trouble, const QString &detail);
    void sayTrouble(const QString &words, const QString &detail);
    void sayNothingKept(RecordingTrouble trouble, const QString &detail);
    void recordingFinished(bool kept);
    void startStatusTimer();
    void invalidateStatusTimer();
    void namePauseResumeButton(bool paused);
    QString currentRecordingTime();

    void chooseAttachment(const QString &name, const QString &image);

    /// Lets `handOver` have the finished recording, if there is one, and takes
    /// it as used.
    void useRecording(const std::function<void(const std::optional<FileURL> &recording)> &handOver);

    /// Lets `handOver` have the chosen prepared message, and withdraws the choice.
    void useChosenFile(const MailSettings &settings, const std::function<void(const MessageDraft &draft)> &handOver);

    void composeRecording(const ComposeSettings &settings);
    void createMessage(const ComposeSettings &settings, const MessageDraft &draft);

    void reply(const ReplySettings &settings);
    void replyWithRecording(const ReplySettings &settings, const std::optional<Message> &target);
    void makeReply(const ReplySettings &settings, const std::optional<Message> &target, const MessageDraft &draft);
    Message lastSelectedMessage();
    QString senderOf(const std::optional<Message> &target);
    bool moveRecording(const FileURL &from, const FileURL &to);
    std::optional<FileURL> recordingFile() const;
    bool waitForFinishedRecording();
    void updateBusy();

    void connectListening();
    void connectNotices();
    void connectMailScript();
    void connectWarnings();
    void showNotice();
    void updateStatusNotice();
    void mailBusyChanged();

    MainWindowDependencies m_dependencies;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<Ui::MainWindow> m_ui;
    std::unique_ptr<Bindings> m_bindings;
    std::unique_ptr<ListeningPanel> m_listening;
    std::unique_ptr<PreferencesWindowController> m_preferences; // null where another window made it
    WindowSizer *m_sizer = nullptr;
    NoticePlace m_notices;
    RecordingWarnings *m_warnings = nullptr;

    bool m_hasIcon = false;
    bool m_recordingActive = false;
    bool m_recordingGoesOn = false;
    bool m_sheetShowing = false;
    bool m_recordingExists = false;
    bool m_existedBeforeDiscard = false;
    bool m_canReplyOrCompose = false;
    bool m_commandRunning = false;
    bool m_busy = false;
    QPointer<QWidget> m_focusBeforeBusy;
    std::unique_ptr<MailController> m_mailController;
    std::unique_ptr<AudioRecorder> m_audioRecorder;
    std::optional<std::pair<RecordingTrouble, QString>> m_recordingTrouble; // of the present recorder, with its detail
    WindowHeights m_heights;
    QString m_attachmentName;
    BoundedLookUps m_folderLookUps{std::chrono::milliseconds(1000)}; // a person waits for the menu
    QString m_attachmentsMenuImage;
    QString m_attachmentsMenuImageChosen;
    QString m_recordingTime;
    QPointer<QTimer> m_recordingStatusTimer;
    QPointer<ASMail> m_mailASObject;
};

} // namespace kest
