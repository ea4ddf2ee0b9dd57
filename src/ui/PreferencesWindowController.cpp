#include "ui/PreferencesWindowController.h"

#include "app/UserDefaults.h"
#include "ui/Bindings.h"
#include "ui/NoticePlace.h"
#include "ui_PrefsSheet.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

namespace kest {

namespace {

constexpr auto sheetFlags = Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
    | Qt::WindowCloseButtonHint;

// For a window manager's frame, which is not known before the sheet stands on the screen.
constexpr int frameAllowance = 40;

constexpr int leastWidth = 940;

/// Escape and the window manager's close button go the way of the Close button.
class Sheet : public QDialog
{
public:
    explicit Sheet(std::function<void()> close)
        : QDialog(nullptr, sheetFlags)
        , m_close(std::move(close))
    {
    }

    void reject() override { m_close(); }

private:
    std::function<void()> m_close;
};

/// Before a window is shown its layouts keep what they measured without styles and fonts.
void measureAnew(QWidget &window)
{
    const QList<QWidget *> parts = window.findChildren<QWidget *>();
    window.ensurePolished();
    for (QWidget *part : parts)
        part->ensurePolished();
    for (QWidget *part : parts)
        part->updateGeometry();
    const QList<QLayout *> layouts = window.findChildren<QLayout *>();
    for (QLayout *layout : layouts)
        layout->invalidate();
}

} // namespace

PreferencesWindowController::PreferencesWindowController(const PreferencesDependencies &dependencies, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_ui(std::make_unique<Ui::PrefsSheet>())
{
}

PreferencesWindowController::~PreferencesWindowController()
{
    delete m_sheet;
}

void PreferencesWindowController::beginSheet(QWidget &parent, std::function<void()> completion)
{
    m_completion = std::move(completion);
    if (!m_sheet)
        loadWindow();
    if (m_sheet->parentWidget() != &parent)
        m_sheet->setParent(&parent, sheetFlags);
    if (!m_sheet->isVisible()) {
        fitToScreen(parent);
        m_ui->subjectField->setFocus(Qt::OtherFocusReason);
        m_sheet->open();
        // A dialog selects the text that it opens on, and one careless key would replace it for good.
        m_ui->subjectField->end(false);
    }
    m_sheet->raise();
    m_sheet->activateWindow();
}

void PreferencesWindowController::leave(const QWidget &parent)
{
    if (m_sheet && m_sheet->parentWidget() == &parent)
        m_sheet->setParent(nullptr, sheetFlags);
}

void PreferencesWindowController::loadWindow()
{
    m_sheet = new Sheet([this] { closePrefsSheet(); });
    m_ui->setupUi(m_sheet);
    m_bindings = std::make_unique<Bindings>(*this, m_dependencies.userDefaults);
    m_bindings->registerClass(QStringLiteral("ASMail"), [this](QObject *owner) {
        return new ASMail(m_dependencies.mailTransport, m_dependencies.alertPresenter, owner);
    });
    m_bindings->connectTree(*m_sheet);
    connect(m_sheet, &QDialog::finished, this, [this] {
        if (const auto completion = std::exchange(m_completion, nullptr))
            completion();
    });
    connect(new QShortcut(QKeySequence::Close, m_sheet), &QShortcut::activated, this,
            &PreferencesWindowController::closePrefsSheet);
    connect(&m_dependencies.notices, &NoticePlace::changed, this, &PreferencesWindowController::showNotice);
    connectPreview();
    applyFonts();
    windowDidLoad();
}

void PreferencesWindowController::windowDidLoad()
{
    applyColors();
    lookUpFolders();
    connect(&m_dependencies.mailTransport, &MailTransport::mailApplicationAppeared, this,
            [this] { askForAccounts(MailTransport::Starting::Never); });
    fillAccounts(std::nullopt);
    askForAccounts(MailTransport::Starting::Never);
    for (QObject *watched : std::initializer_list<QObject *>{m_sheet, m_ui->messageText, m_ui->replyText})
        watched->installEventFilter(this);
}

void PreferencesWindowController::fitToScreen(const QWidget &parent)
{
    // A scroll area asks for less than its contents; where the screen has the room, nothing need be scrolled.
    measureAnew(*m_sheet);
    const QSize room = parent.screen()->availableSize() - QSize(frameAllowance, frameAllowance);
    // A large font: one column to scroll is easier to read than two that are cut.
    const bool fits = m_ui->columnsLayout->totalMinimumSize().width() <= room.width();
    m_ui->columnsLayout->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const QSize contents = m_ui->columnsLayout->totalSizeHint().expandedTo(QSize(leastWidth, 0));
    QSize wanted(contents.width(), contents.height() + m_ui->closingRow->sizeHint().height());
    // A bar to scroll down with must not make a second one necessary.
    if (wanted.height() > room.height())
        wanted.rwidth() += m_sheet->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    m_sheet->resize(wanted.boundedTo(room));
}

void PreferencesWindowController::closePrefsSheet()
{
    QGuiApplication::inputMethod()->commit();
    if (QWidget *editing = m_sheet->focusWidget())
        editing->clearFocus();
    m_sheet->done(QDialog::Accepted);
}

bool PreferencesWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange && watched == m_sheet)
        applyColors();
    if (event->type() == QEvent::FocusIn && (watched == m_ui->messageText || watched == m_ui->replyText)) {
        m_replyInPreview = watched == m_ui->replyText;
        updatePreview();
    }
    return QObject::eventFilter(watched, event);
}

QCheckBox *PreferencesWindowController::includeTaglineCheckbox() const { return m_ui->includeTaglineCheckbox; }
QCheckBox *PreferencesWindowController::includeNameCheckbox() const { return m_ui->includeNameCheckbox; }
QCheckBox *PreferencesWindowController::moveToTrashCheckbox() const { return m_ui->moveToTrashCheckbox; }
ReadoutField *PreferencesWindowController::pathField() const { return m_ui->pathField; }
ReadoutField *PreferencesWindowController::attachmentsPathField() const { return m_ui->attachmentsPathField; }
QLabel *PreferencesWindowController::audioFolderLabel() const { return m_ui->audioFolderLabel; }
QLabel *PreferencesWindowController::attachmentsLabel() const { return m_ui->attachmentsLabel; }
QLabel *PreferencesWindowController::messageLabel() const { return m_ui->messageLabel; }
QLabel *PreferencesWindowController::replyLabel() const { return m_ui->replyLabel; }
QLabel *PreferencesWindowController::removeSavedLabel() const { return m_ui->removeSavedLabel; }
QComboBox *PreferencesWindowController::sendingAcctPopup() const { return m_ui->sendingAcctPopup; }
QAbstractItemView *PreferencesWindowController::sendingAcctPopupMenu() const { return m_ui->sendingAcctPopup->view(); }

} // namespace kest
