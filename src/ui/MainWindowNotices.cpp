// The quiet place of MainWindowController's window, and its fonts.

#include "app/UserDefaults.h"
#include "ui/Announcement.h"
#include "ui/Appearance.h"
#include "ui/MailStateView.h"
#include "ui/MainWindowController.h"
#include "ui/RecordingWarnings.h"
#include "ui/TextScale.h"
#include "ui/Wording.h"
#include "ui_MainWindow.h"

#include <QAccessible>
#include <QApplication>

namespace kest {

namespace {

// At the usual text size; see textScale.
constexpr int smallTextPixels = 12;
constexpr int captionPixels = usualTextPixels;
constexpr int timePixels = 36;

QFont sized(QFont font, int pixels, QFont::Weight weight)
{
    font.setPixelSize(qRound(pixels * textScale(QApplication::font())));
    font.setWeight(weight);
    return font;
}

bool isImportant(NoticePlace::Subject subject)
{
    return subject == NoticePlace::Subject::Settings || subject == NoticePlace::Subject::Recording
        || subject == NoticePlace::Subject::Warning;
}

/// What a screen reader was told last.
struct Said {
    NoticePlace::Subject subject = NoticePlace::Subject::Status;
    QString text;
};

/// For those who do not look at the place. That something is under way is said once, not at every step of it.
void sayNotice(ReadoutField &field, const NoticePlace &notices, Said &said)
{
    const Said before = std::exchange(said, {notices.subject(), notices.text()});
    const bool goesOn = said.subject == NoticePlace::Subject::Progress && before.subject == said.subject;
    if (said.text != before.text && !goesOn)
        announce(field, said.text, isImportant(said.subject) ? Politeness::Assertive : Politeness::Polite);
}

} // namespace

void MainWindowController::applyFonts()
{
    // The window's heights are fixed, so its texts are too, up to the desktop's large sizes; the family is the desktop's.
    const QFont base = sized(m_window->font(), captionPixels, QFont::Normal);
    m_window->setFont(base);
    m_ui->timeField->setFont(sized(base, timePixels, QFont::Light));
    for (QWidget *small : std::initializer_list<QWidget *>{m_ui->noticeField, m_ui->inputNameField,
                                                           m_ui->recordingFactsField, m_ui->recordingFolderField,
                                                           m_ui->positionField, m_ui->playbackNoticeField,
                                                           m_ui->recordingCardHeading, m_ui->mailCardHeading})
        small->setFont(sized(base, smallTextPixels, QFont::Normal));
}

/// For the start, and for every change of the desktop's colours.
void MainWindowController::applyColors()
{
    for (QWidget *quiet : std::initializer_list<QWidget *>{m_ui->inputNameField, m_ui->recordingFactsField,
                                                           m_ui->recordingFolderField,
                                                           m_ui->recordingCardHeading, m_ui->mailCardHeading})
        quiet->setPalette(subdued(m_window->palette()));
    timeField()->setPalette(m_window->palette());
    applyTextColorRule();
    showNotice();
}

void MainWindowController::connectNotices()
{
    MailTransport &mail = m_dependencies.mailTransport;
    connect(&m_notices, &NoticePlace::changed, this, &MainWindowController::showNotice);
    connect(&m_notices, &NoticePlace::changed, this,
            [this, said = Said{}]() mutable { sayNotice(*m_ui->noticeField, m_notices, said); });
    connectWarnings();
    connect(&m_dependencies.userDefaults, &UserDefaults::troubleOccurred, this,
            [this](const QString &message) { m_notices.tell(NoticePlace::Subject::Settings, message); });
    connect(&mail, &MailTransport::busyChanged, this, &MainWindowController::mailBusyChanged);
    connect(&mail, &MailTransport::handOverProgressed, this, [this](qint64 done, qint64 total) {
        m_notices.tell(NoticePlace::Subject::Progress, wordsForHandOver(done, total));
    });
    // The alert of the account check cannot say why no account was found.
    connect(&mail, &MailTransport::mailApplicationUnreachable, this, [this](const Error &error) {
        m_notices.tell(NoticePlace::Subject::Mail, tr("The mail application cannot be reached"), error.description);
    });
    connect(m_ui->mailStateView, &MailStateView::installTold, this,
            [this](const QString &words) { m_notices.tell(NoticePlace::Subject::Hint, words); });
    QWidget::setTabOrder(m_ui->discardButton, m_ui->mailStateView->button());
    m_ui->mailStateView->watch(m_dependencies.mailConnection, m_dependencies.userDefaults);
    updateStatusNotice();
    showNotice();
}

void MainWindowController::connectWarnings()
{
    m_warnings = new RecordingWarnings(m_notices, this);
    connect(m_warnings, &RecordingWarnings::warned, this, &MainWindowController::recordingWarned);
    connect(this, &MainWindowController::recordingTimeChanged, m_warnings, &RecordingWarnings::look);
    connect(this, &MainWindowController::recordingActiveChanged, m_warnings, [this](bool active) {
        if (!active)
            m_warnings->recordingEnded();
    });
    connect(this, &MainWindowController::recordingExistsChanged, m_warnings, [this](bool exists) {
        if (!exists)
            m_warnings->forget();
    });
}

void MainWindowController::mailBusyChanged()
{
    const bool busy = m_dependencies.mailTransport.isBusy();
    if (busy)
        m_notices.withdraw(NoticePlace::Subject::Mail);
    m_notices.tell(NoticePlace::Subject::Progress, busy ? tr("Waiting for the mail application…") : QString());
    updateBusy();
}

void MainWindowController::updateStatusNotice()
{
    const bool paused = m_audioRecorder && m_audioRecorder->recordingPaused();
    QString status = tr("Ready to record");
    if (m_recordingActive)
        status = paused ? tr("Paused") : tr("Recording");
    else if (!m_attachmentName.isNull())
        status = tr("“%1” is ready to send").arg(isolated(m_attachmentName));
    else if (m_recordingExists)
        status = tr("Recorded, ready to send");
    m_notices.tell(NoticePlace::Subject::Status, status);
    m_ui->recordButton->setHeld(paused);
    const bool goesOn = m_recordingActive && !paused && !m_recordingTrouble;
    if (std::exchange(m_recordingGoesOn, goesOn) != goesOn)
        Q_EMIT recordingGoesOnChanged(goesOn);
}

void MainWindowController::showNotice()
{
    ReadoutField *field = m_ui->noticeField;
    const bool important = isImportant(m_notices.subject());
    field->setImage(important ? QStringLiteral("notice") : QString());
    field->setText(m_notices.text());
    field->setToolTip(m_notices.detail().isEmpty() ? m_notices.text()
                                                   : m_notices.text() + u'\n' + m_notices.detail());
    field->setPalette(important ? m_window->palette() : subdued(m_window->palette()));
    QAccessibleEvent event(field, QAccessible::DescriptionChanged); // which the tool tip is
    QAccessible::updateAccessibility(&event);
}

} // namespace kest
