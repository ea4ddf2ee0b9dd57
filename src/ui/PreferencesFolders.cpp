// The two folders of PreferencesWindowController's sheet.

#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/BookmarkStore.h"
#include "platform/FileAddress.h"
#include "platform/Workspace.h"
#include "ui/ApplicationDelegate.h"
#include "ui/NoticePlace.h"
#include "ui/PreferencesWindowController.h"
#include "ui_PrefsSheet.h"

#include <QDir>
#include <QFileDialog>
#include <QLoggingCategory>

#include <unistd.h>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(log, "kest.ui.preferences")

} // namespace

struct PreferencesWindowController::Folder {
    const QString &key;
    std::optional<FolderURL> &held;
    ReadoutField &field;
};

PreferencesWindowController::Folder PreferencesWindowController::recordingsFolder()
{
    return {SettingsKeys::dAudioRecordingFolder, m_recordingDir, *m_ui->pathField};
}

PreferencesWindowController::Folder PreferencesWindowController::attachmentsFolder()
{
    return {SettingsKeys::dAttachmentsFolder, m_attachmentsDir, *m_ui->attachmentsPathField};
}

void PreferencesWindowController::lookUpFolders()
{
    Error ignored; // the look-up's own log reads the slot
    m_recordingDir = m_dependencies.delegate.recordingsDirectoryURLWithError(&ignored);
    showFolder(recordingsFolder());
    m_attachmentsDir = m_dependencies.delegate.attachmentsDirectoryURLWithError(&ignored);
    showFolder(attachmentsFolder());
}

/// Without a folder the field keeps what it shows.
void PreferencesWindowController::showFolder(const Folder &folder)
{
    if (!folder.held)
        return;
    folder.held->startAccessingSecurityScopedResource();
    folder.field.setText(folder.held->displayPath());
    folder.field.setToolTip(folder.held->displayPath());
    folder.held->stopAccessingSecurityScopedResource();
}

void PreferencesWindowController::audioOutputFolderChoose()
{
    choose(recordingsFolder());
}

void PreferencesWindowController::attachmentsFolderChoose()
{
    choose(attachmentsFolder());
}

void PreferencesWindowController::choose(const Folder &folder)
{
    auto *panel = new QFileDialog(m_sheet);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setWindowModality(Qt::WindowModal);
    // Folders only, and one of them. Its New Folder button is there unless it is made read-only.
    panel->setFileMode(QFileDialog::Directory);
    panel->setOption(QFileDialog::ShowDirsOnly);
    panel->setLabelText(QFileDialog::Accept, tr("Choose"));
    if (folder.held && QDir(folder.held->path()).exists())
        panel->setDirectory(folder.held->path());
    connect(panel, &QFileDialog::finished, this, [this, panel, folder](int result) {
        if (result == QDialog::Accepted && !panel->selectedUrls().isEmpty())
            store(folder, panel->selectedUrls().constFirst());
    });
    panel->open();
}

void PreferencesWindowController::store(const Folder &folder, const QUrl &chosen)
{
    const FolderURL url = fileAt(chosen);
    Error error;
    const std::optional<QByteArray> bookmark = m_dependencies.bookmarkStore.bookmarkData(url, &error);
    if (!bookmark) {
        qCWarning(log, "Error storing dir prefs : %ls", qUtf16Printable(logText(error)));
        m_dependencies.notices.tell(NoticePlace::Subject::Hint,
                                    tr("That folder cannot be used. The old one stays."), error.description);
        return;
    }
    m_dependencies.userDefaults.setObject(*bookmark, folder.key);
    folder.held = url;
    showFolder(folder);
    const bool isOfUse = folder.key != SettingsKeys::dAudioRecordingFolder
        || ::access(url.nativePath().constData(), W_OK) == 0;
    m_dependencies.notices.tell(NoticePlace::Subject::Hint,
                                isOfUse ? QString() : tr("Kest may not write to that folder."));
}

void PreferencesWindowController::audioOutputFolderReveal()
{
    reveal(recordingsFolder());
}

void PreferencesWindowController::attachmentsFolderReveal()
{
    reveal(attachmentsFolder());
}

void PreferencesWindowController::reveal(const Folder &folder)
{
    if (folder.held && !m_dependencies.workspace.openURL(addressOf(*folder.held)))
        m_dependencies.notices.tell(NoticePlace::Subject::Hint, tr("Nothing here can show that folder."));
}

} // namespace kest
