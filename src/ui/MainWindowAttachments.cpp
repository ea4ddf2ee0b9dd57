// The menu of prepared messages in MainWindowController's window.

#include "ui/ApplicationDelegate.h"
#include "ui/MainWindowController.h"
#include "ui/OptionalAttachmentsMenu.h"
#include "ui/RecordingWarnings.h"
#include "ui/controls/Icons.h"
#include "ui/controls/PullDownMenu.h"
#include "ui_MainWindow.h"

#include <cerrno>

namespace kest {

void MainWindowController::menuNeedsUpdate()
{
    // A missing folder is told by the menu itself.
    Error unused; // the look-up's own log reads the slot
    const std::optional<FolderURL> folder = m_dependencies.delegate.attachmentsDirectoryURLWithError(&unused);
    const int errorNumber = fillOptionalAttachmentsMenu(*attachmentsMenu(), folder, m_attachmentName, m_folderLookUps);
    if (errorNumber == ETIMEDOUT)
        m_notices.tell(NoticePlace::Subject::Hint, tr("The folder of prepared messages does not answer."),
                       folder->displayPath());
    else if (folder && attachmentsMenu()->items().isEmpty())
        m_notices.tell(NoticePlace::Subject::Hint, tr("The folder of prepared messages is empty."),
                       folder->displayPath());
}

void MainWindowController::attachmentChosen(const QString &title)
{
    const QString name = fileNameFromTitle(title);
    const bool withdraws = name == m_attachmentName;
    chooseAttachment(withdraws ? QString() : name, withdraws ? m_attachmentsMenuImage : m_attachmentsMenuImageChosen);
    // Not the mirror of each other: a withdrawn choice disables the commands even where a recording is running.
    setCanReplyOrCompose(!withdraws);
}

void MainWindowController::removeAttachmentMenuSelection()
{
    chooseAttachment(QString(), m_attachmentsMenuImage);
}

void MainWindowController::setAttachmentName(const QString &name)
{
    const bool wasChosen = messageChosen();
    m_attachmentName = name;
    if (wasChosen != messageChosen())
        Q_EMIT messageChosenChanged(messageChosen());
}

void MainWindowController::chooseAttachment(const QString &name, const QString &image)
{
    setAttachmentName(name);
    attachmentsMenu()->setImage(iconNamed(image));
    attachmentPopUp()->update();
    if (!name.isNull() && !m_recordingActive)
        m_warnings->forget(); // it is not the recording that will be sent
    updateStatusNotice();
}

} // namespace kest
