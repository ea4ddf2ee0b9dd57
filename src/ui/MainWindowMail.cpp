// The New Message command of MainWindowController, and what it shares with the replies.

#include "ui/MainWindowMail.h"

#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "mail/MessageDraft.h"
#include "ui/ApplicationDelegate.h"
#include "ui/ListeningPanel.h"
#include "ui_MainWindow.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace kest {

namespace {

// Nothing stands between the press of Record and the first word; a message takes longer than this to say.
constexpr std::chrono::milliseconds scriptDelay{500};

/// Holds access to a folder, whatever way its scope is left.
class FolderAccess
{
public:
    explicit FolderAccess(const FolderURL &folder)
        : m_folder(folder)
    {
        m_folder.startAccessingSecurityScopedResource();
    }

    ~FolderAccess() { m_folder.stopAccessingSecurityScopedResource(); }

    FolderAccess(const FolderAccess &) = delete;
    FolderAccess &operator=(const FolderAccess &) = delete;

private:
    const FolderURL m_folder;
};

} // namespace

// A program that only waits does without the engine's memory, and so does one that never runs the script.
void MainWindowController::connectMailScript()
{
    const auto load = [this] {
        if (m_mailASObject && m_dependencies.userDefaults.boolForKey(SettingsKeys::useASClass))
            m_mailASObject->preload();
    };
    connect(this, &MainWindowController::canReplyOrComposeChanged, this, [this, load](bool can) {
        if (can)
            QTimer::singleShot(scriptDelay, this, load);
    });
}

MainWindowController::BusyScope::BusyScope(MainWindowController &controller)
    : m_controller(controller)
{
    m_controller.m_commandRunning = true;
    m_controller.updateBusy();
}

MainWindowController::BusyScope::~BusyScope()
{
    // Input that came meanwhile was only kept back. Now, with everything still disabled, it comes to nothing; later, a
    // second press would carry out what nobody asked for twice.
    QCoreApplication::processEvents();
    m_controller.m_commandRunning = false;
    m_controller.updateBusy();
}

QString MainWindowController::MailSettings::accountNameIn(const UserDefaults &defaults)
{
    const QVariant account = defaults.objectForKey(SettingsKeys::emailAccountToUse);
    return account.isValid() ? account.toString() : noAccountChosen;
}

std::optional<QString> MainWindowController::MailSettings::tagline(const QString &key) const
{
    return includeTagline ? std::optional(localizedString(key)) : std::nullopt;
}

MessageDraft MainWindowController::MailSettings::draftOf(const std::optional<FileURL> &recording) const
{
    return MessageDraft::forRecording(body, tagline(taglineKey), recording);
}

struct MainWindowController::ComposeSettings : MailSettings {
    QString subject;

    static ComposeSettings read(const UserDefaults &defaults)
    {
        ComposeSettings settings;
        settings.useASClass = defaults.boolForKey(SettingsKeys::useASClass);
        settings.subject = defaults.objectForKey(SettingsKeys::tNewMessageSubject).toString();
        settings.accountName = accountNameIn(defaults);
        settings.body = defaults.objectForKey(SettingsKeys::tNewMessageBody).toString();
        settings.includeTagline = defaults.boolForKey(SettingsKeys::bIncludeTagline);
        return settings;
    }
};

void MainWindowController::mailComposeNewMessage()
{
    if (m_busy)
        return;
    const BusyScope scope(*this);
    audioRecordingStop();
    if (!m_mailController->mailVerifyAccountExists())
        return;
    const ComposeSettings settings = ComposeSettings::read(m_dependencies.userDefaults);
    if (m_attachmentName.isNull())
        composeRecording(settings);
    else
        useChosenFile(settings, [&](const MessageDraft &draft) { createMessage(settings, draft); });
}

void MainWindowController::composeRecording(const ComposeSettings &settings)
{
    // A list of one path cannot be made without a path: there the command ends.
    if (settings.useASClass && !recordingFile()) {
        m_notices.tell(NoticePlace::Subject::Hint, tr("There is no recording to send yet."));
        return;
    }
    useRecording([&](const std::optional<FileURL> &recording) { createMessage(settings, settings.draftOf(recording)); });
}

void MainWindowController::useRecording(const std::function<void(const std::optional<FileURL> &)> &handOver)
{
    if (!waitForFinishedRecording())
        return;
    {
        const FolderAccess access(m_audioRecorder ? m_audioRecorder->dirURL() : FolderURL());
        handOver(recordingFile());
    }
    setRecordingExists(false);
    m_listening->showUsed();
    setRecordingTime(currentRecordingTime());
    removeAttachmentMenuSelection();
    updateStatusNotice();
}

void MainWindowController::useChosenFile(const MailSettings &settings,
                                         const std::function<void(const MessageDraft &)> &handOver)
{
    Error unused; // the look-up's own log reads the slot
    const std::optional<FolderURL> folder = m_dependencies.delegate.attachmentsDirectoryURLWithError(&unused);
    {
        const FolderAccess access(folder.value_or(FolderURL()));
        const std::optional<FileURL> file =
            folder ? std::optional(folder->appendingPathComponent(m_attachmentName)) : std::nullopt;
        handOver(MessageDraft::forChosenFile(file, settings.tagline(taglineKey), settings.tagline(textTaglineKey)));
    }
    removeAttachmentMenuSelection();
}

void MainWindowController::createMessage(const ComposeSettings &settings, const MessageDraft &draft)
{
    if (!settings.useASClass) {
        m_mailController->mailCreateMessageWithSubject(settings.subject, draft.body, draft.attachment,
                                                       draft.insertionIndex);
        return;
    }
    if (!m_mailASObject)
        return;
    // The recording goes as a path and a chosen file as a location: both as the script has always had them.
    std::optional<QVariantList> attachments;
    if (draft.messageCase == MessageDraft::Case::Recording)
        attachments = QVariantList{draft.attachment->path()};
    else if (draft.messageCase == MessageDraft::Case::File)
        attachments = draft.attachment ? QVariantList{QVariant::fromValue(*draft.attachment)} : QVariantList();
    m_mailASObject->mailNewMessageWithSubject(settings.subject, draft.body, attachments, draft.insertionIndex,
                                              settings.accountName);
}

std::optional<FileURL> MainWindowController::recordingFile() const
{
    // A used one is still the recorder's where the next could not begin; nobody means it any more.
    const bool there = m_audioRecorder && !m_listening->isDiscarded() && !m_listening->isUsed();
    const AudioFileRecorder *recorder = there ? m_audioRecorder->recorder() : nullptr;
    return recorder ? std::optional(recorder->url()) : std::nullopt;
}

bool MainWindowController::waitForFinishedRecording()
{
    AudioFileRecorder *recorder = m_audioRecorder ? m_audioRecorder->recorder() : nullptr;
    if (!recorder || !recorder->isFinishing())
        return true;
    m_notices.tell(NoticePlace::Subject::Progress, tr("Finishing the recording…"));
    QEventLoop loop;
    connect(recorder, &AudioFileRecorder::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(m_dependencies.finishTimeLimit, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    m_notices.withdraw(NoticePlace::Subject::Progress);
    if (!recorder->isFinishing())
        return true;
    m_notices.tell(NoticePlace::Subject::Hint, tr("The recording is still being finished. Please try again."));
    return false;
}

void MainWindowController::updateBusy()
{
    const bool busy = m_commandRunning || m_dependencies.mailTransport.isBusy();
    if (m_busy == busy)
        return;
    if (busy)
        m_focusBeforeBusy = m_window->focusWidget();
    m_busy = busy;
    Q_EMIT busyChanged(busy);
    if (busy || !m_focusBeforeBusy)
        return;
    // Disabled controls lost the focus to a neighbour. What has done its work leaves it to the next message.
    QWidget *next = m_focusBeforeBusy->isEnabled() ? m_focusBeforeBusy.data() : m_ui->recordButton;
    next->setFocus(Qt::OtherFocusReason);
}

} // namespace kest
