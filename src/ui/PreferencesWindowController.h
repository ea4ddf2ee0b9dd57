#pragma once

#include "mail/ASMail.h"
#include "platform/FileURL.h"
#include "platform/MailTransport.h"

#include <QDialog>
#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class QAbstractItemView;
class QCheckBox;
class QComboBox;
class QLabel;
class QUrl;

namespace Ui {
class PrefsSheet;
}

namespace kest {

class ApplicationDelegate;
class Bindings;
class BookmarkStore;
class Clock;
class NoticePlace;
class ProcessInfo;
class ReadoutField;
class UserDefaults;
class Workspace;

/// What the sheet needs of the rest. All must outlive its controller.
struct PreferencesDependencies {
    Clock &clock;
    ProcessInfo &processInfo;
    BookmarkStore &bookmarkStore;
    Workspace &workspace;
    MailTransport &mailTransport;
    AlertPresenter &alertPresenter;
    UserDefaults &userDefaults;
    ApplicationDelegate &delegate;
    NoticePlace &notices; ///< What it says of the settings shows in the sheet too.
};

/// The preferences, a sheet over the main window.
///
/// Texts, check boxes and choices write their settings through the layout
/// file's bindings, the moment they change; the folders and the account go
/// through the operations here. The two folders and the list of accounts are
/// read once, when the sheet is first loaded.
///
/// The sheet never waits for the mail application: it shows at once, asks in
/// the background whether one answers, and lists the accounts when one does. It
/// does not start one unless the person asks for the list. Main thread.
class PreferencesWindowController : public QObject
{
    Q_OBJECT
    Q_PROPERTY(kest::ASMail *mailASObject READ mailASObject WRITE setMailASObject)

public:
    explicit PreferencesWindowController(const PreferencesDependencies &dependencies, QObject *parent = nullptr);
    ~PreferencesWindowController() override;

    /// Shows the sheet over `parent`, which takes no input meanwhile. Loads it
    /// the first time. `completion` runs once, when the sheet has ended,
    /// however it did.
    void beginSheet(QWidget &parent, std::function<void()> completion);

    /// Takes the sheet off `parent`, which is about to go.
    void leave(const QWidget &parent);

    /// The sheet's window; null before the first showing. Owned here.
    QDialog *window() const { return m_sheet; }

    // The controls, once the sheet is loaded.
    QCheckBox *includeTaglineCheckbox() const;
    QCheckBox *includeNameCheckbox() const;
    QCheckBox *moveToTrashCheckbox() const;
    ReadoutField *pathField() const;
    ReadoutField *attachmentsPathField() const;
    QLabel *audioFolderLabel() const;
    QLabel *attachmentsLabel() const;
    QLabel *messageLabel() const;
    QLabel *replyLabel() const;
    QLabel *removeSavedLabel() const;
    QComboBox *sendingAcctPopup() const;
    QAbstractItemView *sendingAcctPopupMenu() const;

    /// The layout file's own instance.
    ASMail *mailASObject() const { return m_mailASObject; }
    void setMailASObject(ASMail *mail) { m_mailASObject = mail; }

    /// The folders as last looked up or chosen; nothing when there is none.
    const std::optional<FolderURL> &recordingDir() const { return m_recordingDir; }
    const std::optional<FolderURL> &attachmentsDir() const { return m_attachmentsDir; }

public Q_SLOTS:
    /// Ends the sheet. A text that is being edited is kept.
    void closePrefsSheet();

    void doChoosDefaultAccount();
    void audioOutputFolderChoose();
    void attachmentsFolderChoose();
    void audioOutputFolderReveal();
    void attachmentsFolderReveal();

    /// Lists the accounts; starts the mail application where none runs.
    void listAccounts();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Folder; // one folder's key, place and field

    void loadWindow();
    void windowDidLoad();
    void connectPreview();
    void fitToScreen(const QWidget &parent);

    void applyFonts();
    void alignLabels();
    void applyColors();
    void applyTextColorRule();
    void showNotice();
    void updatePreview();

    Folder recordingsFolder();
    Folder attachmentsFolder();
    void lookUpFolders();
    static void showFolder(const Folder &folder);
    void choose(const Folder &folder);
    void store(const Folder &folder, const QUrl &chosen);
    void reveal(const Folder &folder);

    void askForAccounts(MailTransport::Starting starting);
    void retrieveAccounts();
    void fillAccounts(const std::optional<QStringList> &titles);
    void showAccountHint(const QString &hint, bool offersToList);

    PreferencesDependencies m_dependencies;
    std::unique_ptr<Ui::PrefsSheet> m_ui;
    QPointer<QDialog> m_sheet;
    std::unique_ptr<Bindings> m_bindings;
    std::function<void()> m_completion;

    QPointer<ASMail> m_mailASObject;
    std::optional<FolderURL> m_recordingDir;
    std::optional<FolderURL> m_attachmentsDir;
    bool m_accountsListed = false;
    bool m_askingForAccounts = false;
    bool m_replyInPreview = false;
};

} // namespace kest
