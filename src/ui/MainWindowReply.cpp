// The reply commands of MainWindowController.

#include "ui/MainWindowMail.h"

#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "mail/MessageDraft.h"
#include "platform/AlertPresenter.h"
#include "platform/FolderContents.h"
#include "ui/ListeningPanel.h"
#include "ui/RecordingName.h"

#include <QPointer>
#include <QScopeGuard>

#include <stdexcept>

namespace kest {

struct MainWindowController::ReplySettings : MailSettings {
    ReplyFlags flags;

    static ReplySettings read(const UserDefaults &defaults, bool replyingToAll)
    {
        ReplySettings settings;
        settings.useASClass = defaults.boolForKey(SettingsKeys::useASClass);
        settings.body = defaults.objectForKey(SettingsKeys::tReplyBody).toString();
        settings.accountName = accountNameIn(defaults);
        settings.includeTagline = defaults.boolForKey(SettingsKeys::bIncludeTagline);
        settings.flags.withReplyAll = replyingToAll;
        settings.flags.deletingOriginal = defaults.boolForKey(SettingsKeys::bDeleteOriginals);
        settings.flags.sendingReply = defaults.boolForKey(SettingsKeys::bSendReplies);
        return settings;
    }
};

void MainWindowController::mailReplyToSelectedMessages()
{
    mailReplyToSelectedMessagesReplyingToAll(false);
}

void MainWindowController::mailReplyAllToSelectedMessages()
{
    mailReplyToSelectedMessagesReplyingToAll(true);
}

void MainWindowController::mailReplyToSelectedMessagesReplyingToAll(bool replyingToAll)
{
    if (m_busy)
        return;
    const BusyScope scope(*this);
    audioRecordingStop();
    // Both checks are the other back end's, also where the script makes the reply.
    if (!m_mailController->mailVerifyAccountExists() || !m_mailController->mailVerifySelectedMessagesExist())
        return;
    // The recording may take a while to be finished, and the person goes on in the mail application meanwhile.
    if (m_mailASObject)
        m_mailASObject->holdSelection(m_mailController->mailApp()->lastSelection());
    const auto released = qScopeGuard([script = QPointer(m_mailASObject)] {
        if (script)
            script->holdSelection({});
    });
    try {
        reply(ReplySettings::read(m_dependencies.userDefaults, replyingToAll));
    } catch (const std::exception &) {
        if (const auto &failure = m_mailController->mailApp()->lastError())
            m_dependencies.alertPresenter.runModal(AlertContent::fromError(*failure));
        m_notices.tell(NoticePlace::Subject::Hint, tr("The reply could not be made. Please try again."));
        throw;
    }
}

void MainWindowController::reply(const ReplySettings &settings)
{
    // Fetched whatever is to be sent. The script finds the message by itself.
    const std::optional<Message> target =
        settings.useASClass ? std::nullopt : std::optional(lastSelectedMessage());
    if (m_attachmentName.isNull())
        replyWithRecording(settings, target);
    else
        useChosenFile(settings, [&](const MessageDraft &draft) { makeReply(settings, target, draft); });
}

Message MainWindowController::lastSelectedMessage()
{
    const QList<Message> selected = m_mailController->mailGetSelectedMessages();
    if (selected.isEmpty()) // since the check
        throw std::out_of_range("no message is selected any more");
    return selected.constLast();
}

void MainWindowController::replyWithRecording(const ReplySettings &settings, const std::optional<Message> &target)
{
    useRecording([&](const std::optional<FileURL> &recording) {
        std::optional<FileURL> file = recording;
        if (m_dependencies.userDefaults.boolForKey(SettingsKeys::bIncudeReplyToInName)) {
            const QString sender = senderOf(target);
            if (recording)
                file = includeSender(sender, *recording);
        }
        try {
            makeReply(settings, target, settings.draftOf(file));
        } catch (...) {
            // Not used: the next command looks for it under the name that the recorder knows.
            if (file != recording)
                moveRecording(*file, *recording);
            throw;
        }
        if (!file)
            m_notices.tell(NoticePlace::Subject::Hint, tr("There was no recording to attach."));
    });
}

QString MainWindowController::senderOf(const std::optional<Message> &target)
{
    if (target)
        return target->replyTo();
    return m_mailASObject ? m_mailASObject->mailReplyGetSender() : QString();
}

void MainWindowController::makeReply(const ReplySettings &settings, const std::optional<Message> &target,
                                     const MessageDraft &draft)
{
    if (target) {
        m_mailController->mailReplyToMessage(*target, draft.body, draft.attachment, settings.flags,
                                             draft.insertionIndex);
        return;
    }
    if (!m_mailASObject)
        return;
    // A prepared file goes as a path here, unlike in a new message: both as the script has always had them.
    std::optional<QVariantList> attachments;
    if (draft.messageCase != MessageDraft::Case::Text)
        attachments = draft.attachment ? QVariantList{draft.attachment->path()} : QVariantList();
    m_mailASObject->mailReplyAppendingBodyText(draft.body, attachments, settings.flags, draft.insertionIndex,
                                               settings.accountName);
}

FileURL MainWindowController::includeSender(const QString &sender, const FileURL &inNameOfURL)
{
    // The name may have been cut within a surrogate pair, and half a pair is no character.
    if (!nameOfSender(sender).isValidUtf16())
        return inNameOfURL;
    const FolderURL folder = inNameOfURL.deletingLastPathComponent();
    const FileURL named =
        folder.appendingPathComponent(recordingNameWithSender(inNameOfURL.lastPathComponent(), sender));
    // A "/" in the name would lead elsewhere, should there be such a folder.
    if (named.deletingLastPathComponent() != folder || !moveRecording(inNameOfURL, named))
        return inNameOfURL;
    return named;
}

bool MainWindowController::moveRecording(const FileURL &from, const FileURL &to)
{
    if (!m_dependencies.folderContents.moveItem(from, to, nullptr))
        return false;
    if (m_listening->recording() == from)
        m_listening->showMoved(to);
    return true;
}

} // namespace kest
