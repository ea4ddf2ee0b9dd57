#include "app/AppDelegate.h"

#include "app/DefaultFolders.h"
#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "platform/Platform.h"
#include "ui/MainWindowController.h"
#include "ui/StatusItem.h"
#include "ui/controls/ReadoutField.h"
#include "ui/controls/SeenClick.h"

#include <QLoggingCategory>
#include <QTimer>
#include <QUrl>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcApp, "kest.app")

const QUrl helpPage(QStringLiteral(KEST_HELP_URL));

// How long the start waits for recordings that a crash left; the rest goes on in the background.
constexpr int recoveryWait = 300; // ms

// The window is painted by then, and the sound server has been asked.
constexpr int firstNameDelay = 100; // ms

// A sound server that is still starting has no name to give: the first showing is tried again, at twice the interval
// each time, up to the second of these.
constexpr int firstNameRetry = 100;  // ms
constexpr int lastNameRetry = 6'400; // ms

// How long the clean-up at the end waits for recordings that are being finished. A minute of sound takes some
// milliseconds; a disk that is slower than this is not waited for.
constexpr int cleanUpWait = 3'000; // ms

// Well after the first paint, and before anybody is ready to speak.
constexpr int preloadDelay = 700; // ms

} // namespace

AppDelegate::AppDelegate(Platform &platform, UserDefaults &defaults, AlertPresenter &alerts, QObject *parent)
    : QObject(parent), m_platform(platform), m_defaults(defaults), m_alerts(alerts),
      m_folders(defaults, *platform.bookmarkStore),
      m_oldRecordings(m_folders, defaults, *platform.folderContents, *platform.trash),
      m_inputMonitor(*platform.audioHardware, inputNameField()), m_inputNameTimer(new QTimer(this))
{
    connect(&m_defaults, &UserDefaults::troubleOccurred, this,
            [this](const QString &message) { m_settingsTroubles.append(message); });
}

AppDelegate::~AppDelegate() = default;

bool AppDelegate::initialize(Platform &platform, UserDefaults &defaults)
{
    return registerSettings(defaults, *platform.bookmarkStore, musicFolders());
}

void AppDelegate::applicationDidFinishLaunching()
{
    finishInterruptedRecordings();
    m_winController = std::make_unique<MainWindowController>(MainWindowDependencies {
        *m_platform.clock, *m_platform.processInfo, *m_platform.recorderFactory, *m_platform.player,
        *m_platform.mailTransport, *m_platform.mailConnection, m_alerts, m_defaults, *this, *m_platform.folderContents,
        *m_platform.trash, *m_platform.bookmarkStore, *m_platform.workspace });
    connectWindow();
    m_winController->showWindow();
    // Through the loop's own net: a device's odd name must not keep the rest from starting.
    QTimer::singleShot(firstNameDelay, this, [this] { showInputName(firstNameRetry); });
    connect(m_platform.workspace.get(), &Workspace::applicationActivated, this, &AppDelegate::appWasActivated);
    connect(m_inputNameTimer, &QTimer::timeout, this, &AppDelegate::timeToUpdateInputName);
    m_inputNameTimer->start(inputNameInterval);
    m_winController->window()->installEventFilter(this);
    QTimer::singleShot(preloadDelay, this, [this] {
        m_platform.recorderFactory->preload();
        offerStatusItem();
    });
}

void AppDelegate::offerStatusItem()
{
    m_statusItem = StatusItem::make(*m_winController);
    if (!m_statusItem)
        return;
    connect(m_statusItem.get(), &StatusItem::showRequested, this, &AppDelegate::activate);
    // The item's menu is still on its way out of the program's own loop.
    connect(m_statusItem.get(), &StatusItem::quitRequested, this, &AppDelegate::terminateRequested,
            Qt::QueuedConnection);
}

void AppDelegate::finishInterruptedRecordings()
{
    Error error;
    QList<FolderURL> folders;
    if (const auto folder = recordingsDirectoryURLWithError(&error))
        folders.append(*folder);
    m_platform.recorderFactory->finishInterruptedRecordings(folders, recoveryWait);
}

void AppDelegate::connectWindow()
{
    MainWindowController *window = m_winController.get();
    connect(window, &MainWindowController::terminateRequested, this, &AppDelegate::terminateRequested);
    connect(window, &MainWindowController::helpRequested, this, &AppDelegate::openHelp);
    connect(window, &MainWindowController::recordingTroubleTold, this, &AppDelegate::tellTrouble);
    connect(window, &MainWindowController::recordingWarned, this, &AppDelegate::tellWarning);
    // Queued: it may connect to a bus, and nothing is to stand between the press and the first word.
    connect(
        window, &MainWindowController::recordingGoesOnChanged, this,
        [this](bool goesOn) {
            goesOn ? m_platform.sleepHold->hold(tr("A message is being recorded")) : m_platform.sleepHold->letGo();
        },
        Qt::QueuedConnection);
    connect(window, &MainWindowController::openURLRequested, this,
            [this](const QUrl &url) { m_platform.workspace->openURL(url); });
    for (const QString &message : std::as_const(m_settingsTroubles))
        window->notices().tell(NoticePlace::Subject::Settings, message);
}

// Before there is a window, it takes nothing.
InputNameField AppDelegate::inputNameField()
{
    return { [this] { return !m_winController || m_winController->recordingActive(); },
             [this](const QString &name) { m_winController->inputNameField()->setToolTip(name); },
             [this](const QString &text) { m_winController->inputNameField()->setText(text); } };
}

AppDelegate::TerminateReply AppDelegate::applicationShouldTerminate()
{
    disconnect(m_platform.workspace.get(), nullptr, this, nullptr);
    m_platform.workspace->withdrawNotice();
    const qint64 choice = m_defaults.integerForKey(SettingsKeys::iWhenToDelete);
    if (choice != 0) {
        finishRecordings();
        deleteOldFilesChoice(choice);
    }
    return TerminateNow;
}

/// A finished file takes the place of the unfinished one: after the clean-up, it would bring back what was removed.
void AppDelegate::finishRecordings()
{
    if (m_winController && m_winController->recordingActive())
        m_winController->audioRecordingStop();
    m_platform.recorderFactory->waitForFinished(cleanUpWait);
}

void AppDelegate::deleteOldFilesChoice(qint64 choice)
{
    m_oldRecordings.deleteOldFilesChoice(choice);
}

void AppDelegate::appWasActivated(const QString &identifier)
{
    if (identifier == m_platform.workspace->ownIdentifier() || identifier == mailApplicationIdentifier) {
        m_winController->orderFront();
        if (canBeSeen(*m_winController->window()))
            noticeIsSeen();
        updateInputName();
    } else if (!m_winController->sheetShowing()) {
        const bool wasShown = m_winController->window()->isVisible();
        m_winController->orderOut();
        if (wasShown)
            tellThatRecordingGoesOn();
    }
}

void AppDelegate::tellThatRecordingGoesOn()
{
    // After a trouble the window is still active until Stop, but nothing goes on, and the person has been told.
    if (!m_winController->recordingActive() || m_winController->notices().holds(NoticePlace::Subject::Recording))
        return;
    const bool paused = m_winController->audioRecorder()->recordingPaused();
    m_platform.workspace->showNotice(paused ? tr("Kest’s recording is paused") : tr("Kest is still recording"),
                                     tr("Its window comes back when you turn to your mail, or start Kest again."));
}

void AppDelegate::tellTrouble(const QString &words)
{
    if (canBeSeen(*m_winController->window()))
        return;
    m_platform.workspace->showNotice(
        tr("Kest’s recording has ended"),
        words + u'\n' + tr("Kest’s window comes back when you turn to your mail, or start Kest again."));
}

/// A microphone that is silent between words must not bring a notice with every pause for breath.
void AppDelegate::tellWarning(const QString &words)
{
    if (canBeSeen(*m_winController->window()) || m_toldWarnings.contains(words))
        return;
    m_toldWarnings.append(words);
    m_platform.workspace->showNotice(
        tr("Kest is still recording"),
        words + u'\n' + tr("Its window comes back when you turn to your mail, or start Kest again."));
}

void AppDelegate::noticeIsSeen()
{
    m_platform.workspace->withdrawNotice();
    m_toldWarnings.clear();
}

void AppDelegate::activate()
{
    m_winController->showWindow();
    noticeIsSeen();
}

void AppDelegate::openHelp()
{
    if (!m_platform.workspace->openURL(helpPage))
        qCWarning(lcApp, "No program opens the help page");
}

std::optional<FolderURL> AppDelegate::recordingsDirectoryURLWithError(Error *error)
{
    return m_folders.recordingsDirectoryURLWithError(error);
}

std::optional<FolderURL> AppDelegate::attachmentsDirectoryURLWithError(Error *error)
{
    return m_folders.attachmentsDirectoryURLWithError(error);
}

void AppDelegate::showInputName(int retryAfter)
{
    QTimer::singleShot(retryAfter, this, [this, retryAfter] {
        if (retryAfter < lastNameRetry && m_winController->inputNameField()->toolTip().isEmpty())
            showInputName(2 * retryAfter);
    });
    updateInputName(); // may throw, so it comes last
}

bool AppDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide) {
        m_inputNameTimer->stop();
    } else if (event->type() == QEvent::Show && !m_inputNameTimer->isActive()) {
        m_inputNameTimer->start();
        QTimer::singleShot(0, this, &AppDelegate::timeToUpdateInputName);
    }
    return QObject::eventFilter(watched, event);
}

void AppDelegate::timeToUpdateInputName()
{
    updateInputName();
}

void AppDelegate::updateInputName()
{
    m_inputMonitor.updateInputName();
}

std::optional<QString> AppDelegate::nameOfDefaultInputDevice() const
{
    return m_inputMonitor.nameOfDefaultInputDevice();
}

} // namespace kest
