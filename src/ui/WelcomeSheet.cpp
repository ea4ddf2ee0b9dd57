#include "ui/WelcomeSheet.h"

#include "ui/Announcement.h"
#include "ui/Appearance.h"
#include "ui/TextScale.h"
#include "ui/controls/Icons.h"
#include "ui/controls/SeenClick.h"
#include "ui_WelcomeSheet.h"

#include <QApplication>
#include <QEvent>
#include <QShortcut>
#include <QWindow>

namespace kest {

namespace {

constexpr auto sheetFlags = Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
    | Qt::WindowCloseButtonHint;

constexpr int sheetWidth = 480;  // points; a little more than the main window has
constexpr int pictureSize = 48;  // points
constexpr int headingGrowth = 7; // pixels

} // namespace

WelcomeSheet::WelcomeSheet(const Dependencies &dependencies, QWidget *window)
    : QDialog(window, sheetFlags)
    , m_ui(std::make_unique<Ui::WelcomeSheet>())
{
    m_ui->setupUi(this);
    setWindowModality(Qt::WindowModal);
    setAccessibleDescription(m_ui->introduction->text() + u' ' + m_ui->closingWords->text());
    m_ui->picture->setPixmap(
        iconNamed(QStringLiteral("org.kest.Kest")).pixmap(QSize(pictureSize, pictureSize), devicePixelRatio()));
    applyFonts();
    applyColors();
    m_ui->trialView->watch(dependencies.microphoneTrial);
    m_ui->mailStateView->watch(dependencies.mailConnection, dependencies.userDefaults);
    connect(m_ui->mailStateView, &MailStateView::installTold, this, &WelcomeSheet::tell);
    onSeenClick(*m_ui->startButton, this, [this] { accept(); });
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QDialog::reject);
    // Not the microphone's button: a key that was meant for something else must not open it.
    m_ui->startButton->setFocus(Qt::OtherFocusReason);
    window->installEventFilter(this);
    // Kest was started again: its window got the focus, but takes no input under the sheet.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this, window](const QWindow *focused) {
        if (focused && focused == window->windowHandle() && isVisible())
            activateWindow();
    });
}

WelcomeSheet::~WelcomeSheet() = default;

void WelcomeSheet::begin()
{
    if (parentWidget()->isVisible())
        show();
}

void WelcomeSheet::done(int result)
{
    parentWidget()->removeEventFilter(this);
    m_ui->trialView->stop();
    QDialog::done(result);
}

bool WelcomeSheet::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)
        fit();
    if (event->type() == QEvent::PaletteChange && m_ui->startButton) // the last one that is made
        applyColors();
    return QDialog::event(event);
}

bool WelcomeSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Hide)
        hide();
    else if (watched == parentWidget() && event->type() == QEvent::Show)
        showQuietly();
    return QDialog::eventFilter(watched, event);
}

/// Like the main window when it comes back beside the mail: without the focus. Where the person brought the window back,
/// the focus passes from it to what lies over it.
void WelcomeSheet::showQuietly()
{
    winId(); // makes it, where it was never shown
    windowHandle()->setProperty("_q_showWithoutActivating", true);
    show();
    windowHandle()->setProperty("_q_showWithoutActivating", false);
}

/// Sentences differ in length, and a button comes and goes.
void WelcomeSheet::fit()
{
    const int width = qMax(sheetWidth, layout()->totalMinimumSize().width());
    setFixedSize(width, layout()->totalHeightForWidth(width));
}

void WelcomeSheet::applyFonts()
{
    const QFont base = sheetFont(font());
    setFont(base);
    QFont large = base;
    large.setPixelSize(base.pixelSize() + headingGrowth);
    large.setWeight(QFont::DemiBold);
    m_ui->heading->setFont(large);
    QFont small = base;
    small.setPixelSize(base.pixelSize() - 1);
    for (QWidget *quiet : {m_ui->microphoneHeading, m_ui->mailHeading, m_ui->closingWords})
        quiet->setFont(small);
}

/// For the start, and for every change of the desktop's colours.
void WelcomeSheet::applyColors()
{
    for (QWidget *quiet : {m_ui->introduction, m_ui->microphoneHeading, m_ui->mailHeading, m_ui->closingWords})
        quiet->setPalette(subdued(palette()));
}

void WelcomeSheet::tell(const QString &words)
{
    m_ui->closingWords->setText(words);
    announce(*m_ui->closingWords, words, Politeness::Assertive);
}

} // namespace kest
