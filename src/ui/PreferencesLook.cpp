// How PreferencesWindowController's sheet looks, and what its preview shows.

#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "mail/MessageDraft.h"
#include "platform/Clock.h"
#include "platform/ProcessInfo.h"
#include "ui/Appearance.h"
#include "ui/NoticePlace.h"
#include "ui/PreferencesWindowController.h"
#include "ui/RecordingName.h"
#include "ui/TextScale.h"
#include "ui/Wording.h"
#include "ui/controls/Icons.h"
#include "ui_PrefsSheet.h"

namespace kest {

namespace {

constexpr int textLines = 5;

void setTextColor(QWidget &widget, const QColor &color)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, color);
    widget.setPalette(palette);
}

/// Empty boxes must stand out from a dark ground too.
QPalette visibleBoxes(QPalette palette)
{
    const QColor base = palette.color(QPalette::Base);
    if (base.lightness() < 128)
        palette.setColor(QPalette::Base, mixed(base, palette.color(QPalette::Text), 0.2));
    return palette;
}

/// Round corners as the window's buttons have them; the border shows the focus.
QString fieldStyle(const QPalette &palette)
{
    const QColor border = mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.18);
    return QStringLiteral("QLineEdit, QPlainTextEdit { background: palette(base); border: 1px solid %1; border-radius: 6px;"
                          " padding: 3px 5px; }"
                          "QLineEdit:focus, QPlainTextEdit:focus { border-color: %2; }")
        .arg(border.name(), lineAccent(palette).name());
}

} // namespace

void PreferencesWindowController::applyFonts()
{
    const QFont base = sheetFont(m_sheet->font());
    m_sheet->setFont(base);
    QFont heading = base;
    heading.setWeight(QFont::DemiBold);
    for (QLabel *label : {m_ui->messageHeading, m_ui->repliesHeading, m_ui->previewHeading, m_ui->accountHeading,
                          m_ui->foldersHeading, m_ui->cleanUpHeading})
        label->setFont(heading);
    QFont small = base;
    small.setPixelSize(base.pixelSize() - 1);
    for (QWidget *quiet : std::initializer_list<QWidget *>{m_ui->pathField, m_ui->attachmentsPathField,
                                                           m_ui->accountHint, m_ui->sheetNoticeField})
        quiet->setFont(small);
    for (QPlainTextEdit *text : {m_ui->messageText, m_ui->replyText})
        text->setMinimumHeight(text->fontMetrics().lineSpacing() * textLines + 2 * text->frameWidth() + 8);
    alignLabels();
}

/// Labels of one column are as wide as the widest of them, card by card.
void PreferencesWindowController::alignLabels()
{
    for (const QList<QLabel *> &column : {QList<QLabel *>{m_ui->subjectLabel, m_ui->messageLabel, m_ui->replyLabel},
                                          QList<QLabel *>{m_ui->accountLabel, m_ui->backEndLabel,
                                                          m_ui->removeSavedLabel}}) {
        int width = 0;
        for (const QLabel *label : column) {
            // The marked letter of a joined script is drawn wider than Qt measures it.
            const int joined = label->layoutDirection() == Qt::RightToLeft ? label->fontMetrics().averageCharWidth() : 0;
            width = qMax(width, label->sizeHint().width() + joined);
        }
        for (QLabel *label : column)
            label->setMinimumWidth(width);
    }
}

/// For the loading, and for every change of the desktop's colours.
void PreferencesWindowController::applyColors()
{
    const QPalette palette = m_sheet->palette();
    for (QWidget *quiet : std::initializer_list<QWidget *>{m_ui->pathField, m_ui->attachmentsPathField,
                                                           m_ui->accountHint})
        quiet->setPalette(subdued(palette));
    const QList<QCheckBox *> boxes = m_sheet->findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes)
        box->setPalette(visibleBoxes(palette));
    const QString style = fieldStyle(palette);
    for (QWidget *field : std::initializer_list<QWidget *>{m_ui->subjectField, m_ui->messageText, m_ui->replyText})
        field->setStyleSheet(style);
    applyTextColorRule();
}

void PreferencesWindowController::applyTextColorRule()
{
    const std::optional<OperatingSystemVersion> version = m_dependencies.processInfo.operatingSystemVersion();
    // Only the minor number counts, whatever the major one is: deliberately so.
    const int minor = version ? version->minor : 0;
    if (minor >= 10)
        return;
    const QColor color = QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.8F);
    for (QCheckBox *box : {includeNameCheckbox(), includeTaglineCheckbox(), moveToTrashCheckbox()})
        setTextColor(*box, color);
    for (QLabel *label : {audioFolderLabel(), attachmentsLabel(), messageLabel(), replyLabel(), removeSavedLabel()})
        setTextColor(*label, color);
    attachmentsPathField()->setTextColor(Qt::black);
    pathField()->setTextColor(Qt::black);
}

void PreferencesWindowController::showNotice()
{
    // What the main window says, as far as it matters here: the sheet may cover it.
    using enum NoticePlace::Subject;
    QString text;
    for (const NoticePlace::Subject subject : {Hint, Settings, Recording}) {
        if (text.isEmpty())
            text = m_dependencies.notices.textOf(subject);
    }
    m_ui->sheetNoticeField->setImage(text.isEmpty() ? QString() : QStringLiteral("notice"));
    m_ui->sheetNoticeField->setText(text);
    m_ui->sheetNoticeField->setToolTip(text);
}

void PreferencesWindowController::connectPreview()
{
    connect(&m_dependencies.userDefaults, &UserDefaults::valueChanged, this,
            &PreferencesWindowController::updatePreview);
    updatePreview();
    showNotice();
}

void PreferencesWindowController::updatePreview()
{
    const UserDefaults &defaults = m_dependencies.userDefaults;
    const bool reply = m_replyInPreview;
    const QString text = defaults.objectForKey(reply ? SettingsKeys::tReplyBody : SettingsKeys::tNewMessageBody).toString();
    const bool withTagline = defaults.boolForKey(SettingsKeys::bIncludeTagline);
    const std::optional<QString> tagline = withTagline ? std::optional(localizedString(taglineKey)) : std::nullopt;
    QString recording = recordingFileName(m_dependencies.clock.now());
    if (reply && defaults.boolForKey(SettingsKeys::bIncudeReplyToInName))
        recording = recordingNameWithSender(recording, tr("sender’s name"));
    m_ui->previewHeading->setText(reply ? tr("Preview of a reply") : tr("Preview of a new message"));
    m_ui->preview->show(reply ? tr("Re: the subject of the message") : defaults.objectForKey(SettingsKeys::tNewMessageSubject).toString(),
                        MessageDraft::forRecording(text, tagline, FileURL::fromPath(u'/' + recording)));
}

} // namespace kest
