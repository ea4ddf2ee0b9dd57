#include "ui/MainWindowController.h"

#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/ProcessInfo.h"
#include "ui/Bindings.h"
#include "ui/ListeningPanel.h"
#include "ui/MainWindowAccessible.h"
#include "ui/PreferencesWindowController.h"
#include "ui/RecordingWarnings.h"
#include "ui/TextScale.h"
#include "ui/WindowSizer.h"
#include "ui/Wording.h"
#include "ui/controls/Icons.h"
#include "ui/controls/PullDownMenu.h"
#include "ui/controls/ReadoutField.h"
#include "ui/controls/SeenClick.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace kest {

namespace {

const QString noTime = QStringLiteral("--:--");

// One-character key equivalents of the disclosure triangle.
const QChar rightArrowFunctionKey(0xF703);
const QChar leftArrowFunctionKey(0xF702);

// The margins, the notice's picture, and the microphone's with its initials.
constexpr int roomBesideNotice = 2 * 14 + 17 + 8 + 45;
constexpr int frameRoom = 16; // points, for the window manager's frame

/// Stores, announces, and says whether anything changed.
template <typename Value>
bool replace(Value &stored, const Value &value)
{
    if (stored == value)
        return false;
    stored = value;
    return true;
}

/// Of the troubles and warnings that the line for notices may have to say. Those with a name in them are shortened.
int widestNotice(const QFontMetrics &metrics)
{
    QStringList notices{wordsForSilentRecording(), wordsFor(InputCondition::Silent, {}), wordsFor(InputCondition::Clipping, {}),
                        wordsForSize(RecordingWarnings::sizes[0]), wordsForSize(RecordingWarnings::sizes[2])};
    for (int trouble = 0; trouble <= static_cast<int>(RecordingTrouble::EncoderMissing); ++trouble)
        notices << wordsFor(RecordingTrouble(trouble)) << wordsForNothingKept(RecordingTrouble(trouble));
    int widest = 0;
    for (const QString &notice : std::as_const(notices))
        widest = qMax(widest, metrics.horizontalAdvance(notice));
    return widest;
}

/// Large text makes the window higher, panel by panel from the top.
void heightenForText(QWidget &window, double scale, std::initializer_list<QWidget *> panels)
{
    int top = 0;
    for (QWidget *panel : panels) {
        panel->setGeometry(0, top, panel->width(), qRound(panel->height() * scale));
        top += panel->height();
    }
    window.resize(window.width(), top);
}

/// Some languages need more room than the layout file has, and large text does.
void widenForTexts(QWidget &window, const ReadoutField &noticeField, std::initializer_list<QWidget *> panels)
{
    // On a small screen a notice is rather cut off, with its whole text in the tool tip.
    const int forNotices = qMin(widestNotice(noticeField.fontMetrics()) + scaledToText(roomBesideNotice),
                                window.screen()->availableSize().width() - frameRoom);
    int width = qMax(window.width(), forNotices);
    for (const QWidget *panel : panels)
        width = qMax(width, panel->minimumSizeHint().width());
    for (QWidget *panel : panels)
        panel->resize(width, panel->height());
    window.resize(width, window.height());
}

/// Null until a window showed the sheet.
QPointer<PreferencesWindowController> &preferencesOfThisProcess()
{
    static QPointer<PreferencesWindowController> only;
    return only;
}

} // namespace

MainWindowController::MainWindowController(const MainWindowDependencies &dependencies, QObject *parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_window(std::make_unique<QWidget>())
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    loadWindow();
    awakeFromNib();
    windowDidLoad();
}

MainWindowController::~MainWindowController()
{
    invalidateStatusTimer();
    if (preferencesOfThisProcess())
        preferencesOfThisProcess()->leave(*m_window);
}

void MainWindowController::loadWindow()
{
    installMainWindowAccessible();
    m_ui->setupUi(m_window.get());
    m_window->installEventFilter(this);
    applyFonts();
    const double scale = textScale(QApplication::font());
    heightenForText(*m_window, scale, {m_ui->controlPanel, m_ui->detailPanel});
    widenForTexts(*m_window, *m_ui->noticeField, {m_ui->controlPanel, m_ui->detailPanel});
    m_sizer = new WindowSizer(m_window.get(), this);
    m_sizer->setVerticalScale(scale);
    connect(m_sizer, &WindowSizer::reached, this, &MainWindowController::hideCollapsedPart);
    m_listening = std::make_unique<ListeningPanel>(*m_ui, m_dependencies.player, m_dependencies.trash);
    m_bindings = std::make_unique<Bindings>(*this, m_dependencies.userDefaults);
    m_bindings->registerClass(QStringLiteral("ASMail"), [this](QObject *owner) {
        return new ASMail(m_dependencies.mailTransport, m_dependencies.alertPresenter, owner);
    });
    m_bindings->connectTree(*m_window);
    connect(m_ui->recordButton, &QAbstractButton::pressed, this, [this] {
        if (canBeSeen(*m_window)) // other programs can press it while nobody sees it
            m_dependencies.recorderFactory.warmUp();
    });
    connect(attachmentPopUp(), &PullDownButton::menuNeedsUpdate, this, &MainWindowController::menuNeedsUpdate);
    connect(attachmentsMenu(), &PullDownMenu::triggered, this, &MainWindowController::attachmentChosen);
    for (const QKeySequence::StandardKey keys : {QKeySequence::Quit, QKeySequence::Close})
        connect(new QShortcut(keys, m_window.get()), &QShortcut::activated, m_window.get(), &QWidget::close);
    connectListening();
    connectNotices();
    connectMailScript();
}

void MainWindowController::awakeFromNib()
{
    m_attachmentsMenuImage = QStringLiteral("attach");
    m_attachmentsMenuImageChosen = QStringLiteral("Tick");
    m_heights = {.minHeight = 141.0, .expandedHeight = 321.0};
    m_attachmentName = QString();
    attachmentsMenu()->setImage(iconNamed(m_attachmentsMenuImage));
    const bool expanded = m_dependencies.userDefaults.boolForKey(SettingsKeys::bWindowExpanded);
    expanded ? disclosureTriangleOpen() : disclosureTriangleClose();
    WindowFrame frame = m_sizer->frame();
    const QPointF origin = m_window->property("frameOrigin").toPointF();
    frame.x = origin.x();
    frame.y = origin.y();
    m_sizer->setFrame(initialFrame(frame, expanded, m_heights));
}

void MainWindowController::windowDidLoad()
{
    setRecordingActive(false);
    setCanReplyOrCompose(false);
    setRecordingExists(false);
    setRecordingTime(localizedString(noTime));
    m_mailController = std::make_unique<MailController>(m_dependencies.mailTransport, m_dependencies.alertPresenter);
    applyColors();
}

void MainWindowController::applyTextColorRule()
{
    const std::optional<OperatingSystemVersion> version = m_dependencies.processInfo.operatingSystemVersion();
    // Only the minor number counts, whatever the major one is: deliberately so.
    if (version && version->minor >= 10)
        return;
    const QColor color = QColor::fromRgbF(1.0F, 1.0F, 1.0F, 0.8F);
    inputNameField()->setTextColor(color);
    timeField()->setTextColor(color);
}

void MainWindowController::showWindow()
{
    restoreIfMinimized();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

// A window that was minimised when it was hidden would come back as nothing but an entry of the task bar.
void MainWindowController::restoreIfMinimized()
{
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
}

void MainWindowController::orderFront()
{
    if (!m_window->isVisible()) {
        restoreIfMinimized();
        // A remapped window would be placed anew otherwise.
        m_window->move(m_window->pos());
        // What WA_ShowWithoutActivating sets when a window is made, too late for this one: on X11 a zero user time.
        m_window->winId(); // makes it, where it was never shown
        QWindow *native = m_window->windowHandle();
        native->setProperty("_q_showWithoutActivating", true);
        m_window->show();
        native->setProperty("_q_showWithoutActivating", false);
    }
    m_window->raise();
}

void MainWindowController::orderOut()
{
    m_window->hide();
}

void MainWindowController::windowToggleExpanded()
{
    const ToggledFrame toggled = toggledFrame(m_sizer->frame(), m_heights);
    toggled.expanded ? disclosureTriangleOpen() : disclosureTriangleClose();
    if (toggled.expanded)
        m_ui->detailPanel->show();
    m_dependencies.userDefaults.setBool(toggled.expanded, SettingsKeys::bWindowExpanded);
    m_sizer->animateToFrame(toggled.frame);
}

void MainWindowController::hideCollapsedPart()
{
    // What cannot be seen must not be reached by keyboard or screen reader.
    m_ui->detailPanel->setVisible(m_sizer->frame().height > m_heights.minHeight);
}

void MainWindowController::disclosureTriangleClose()
{
    setDisclosureTriangle(QStringLiteral("disclosure-closed"), rightArrowFunctionKey, Qt::Key_Right, tr("Show More"));
}

void MainWindowController::disclosureTriangleOpen()
{
    setDisclosureTriangle(QStringLiteral("disclosure-opened"), leftArrowFunctionKey, Qt::Key_Left, tr("Show Less"));
}

void MainWindowController::setDisclosureTriangle(const QString &image, QChar keyEquivalent, Qt::Key key,
                                                 const QString &name)
{
    ControlButton *triangle = disclosureTriangle();
    triangle->setImage(image);
    triangle->setAlternateImage(image + QStringLiteral("-alt"));
    triangle->setProperty("keyEquivalent", QString(keyEquivalent));
    triangle->setAccessibleName(name);
    triangle->setHint(name);
    triangle->setKeys(QKeySequence(key).toString(QKeySequence::PortableText));
    m_bindings->setKeys(*triangle);
}

void MainWindowController::showPrefsSheet()
{
    QPointer<PreferencesWindowController> &only = preferencesOfThisProcess();
    if (!only) {
        m_preferences = std::make_unique<PreferencesWindowController>(PreferencesDependencies{
            .clock = m_dependencies.clock,
            .processInfo = m_dependencies.processInfo,
            .bookmarkStore = m_dependencies.bookmarkStore,
            .workspace = m_dependencies.workspace,
            .mailTransport = m_dependencies.mailTransport,
            .alertPresenter = m_dependencies.alertPresenter,
            .userDefaults = m_dependencies.userDefaults,
            .delegate = m_dependencies.delegate,
            .notices = m_notices,
        });
        only = m_preferences.get();
    }
    setSheetShowing(true);
    only->beginSheet(*m_window, [self = QPointer(this)] {
        if (self)
            self->setSheetShowing(false);
    });
}

void MainWindowController::openHelp()
{
    Q_EMIT helpRequested();
}

void MainWindowController::windowWillClose()
{
    Q_EMIT terminateRequested();
}

bool MainWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window.get() && event->type() == QEvent::Close)
        windowWillClose();
    else if (watched == m_window.get() && event->type() == QEvent::PaletteChange)
        applyColors();
    else if (watched == m_window.get() && event->type() == QEvent::Paint)
        giveIcon();
    return QObject::eventFilter(watched, event);
}

/// Drawn in the sizes that task bars want, which the first picture need not wait for.
void MainWindowController::giveIcon()
{
    if (std::exchange(m_hasIcon, true))
        return;
    QTimer::singleShot(0, this, [this] { m_window->setWindowIcon(iconNamed(QStringLiteral("org.kest.Kest"))); });
}

void MainWindowController::setRecordingActive(bool active)
{
    if (replace(m_recordingActive, active))
        Q_EMIT recordingActiveChanged(active);
}

void MainWindowController::setSheetShowing(bool showing)
{
    if (replace(m_sheetShowing, showing))
        Q_EMIT sheetShowingChanged(showing);
}

void MainWindowController::setRecordingExists(bool exists)
{
    if (replace(m_recordingExists, exists))
        Q_EMIT recordingExistsChanged(exists);
}

void MainWindowController::setCanReplyOrCompose(bool can)
{
    if (replace(m_canReplyOrCompose, can))
        Q_EMIT canReplyOrComposeChanged(can);
}

void MainWindowController::setRecordingTime(const QString &time)
{
    if (replace(m_recordingTime, time))
        Q_EMIT recordingTimeChanged(time);
}

ReadoutField *MainWindowController::inputNameField() const { return m_ui->inputNameField; }
ReadoutField *MainWindowController::timeField() const { return m_ui->timeField; }
ControlButton *MainWindowController::pauseResumeButton() const { return m_ui->pauseResumeButton; }
ControlButton *MainWindowController::disclosureTriangle() const { return m_ui->disclosureTriangle; }
PullDownButton *MainWindowController::attachmentPopUp() const { return m_ui->attachmentPopUp; }
PullDownMenu *MainWindowController::attachmentsMenu() const { return m_ui->attachmentPopUp->menu(); }
KestLevelsView *MainWindowController::levelsView() const { return m_ui->levelsView; }

} // namespace kest
