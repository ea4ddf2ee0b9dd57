#include "ui/MicrophoneTrialView.h"

#include "audio/KestLevelsView.h"
#include "ui/Announcement.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/MeterFrame.h"
#include "ui/controls/ReadoutField.h"
#include "ui/controls/SeenClick.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kest {

namespace {

constexpr int gap = 8;         // points
constexpr int meterHeight = 6; // points

// A sound server that is just starting has no microphone to name yet.
constexpr int namePatience = 2000; // ms
constexpr int nameInterval = 500;  // ms

constexpr float unlit = -160.0F; // dBFS

constexpr char invitation[]
    = QT_TRANSLATE_NOOP("kest::MicrophoneTrialView", "Press the button and speak. Nothing is recorded.");
constexpr char notYetHeard[] = QT_TRANSLATE_NOOP("kest::MicrophoneTrialView", "Nothing heard yet. Say something.");
constexpr char areHeard[] = QT_TRANSLATE_NOOP("kest::MicrophoneTrialView", "You are heard.");
constexpr char wereHeard[] = QT_TRANSLATE_NOOP("kest::MicrophoneTrialView", "You were heard.");
constexpr char nothingHeard[]
    = QT_TRANSLATE_NOOP("kest::MicrophoneTrialView", "Nothing was heard. Is the microphone muted?");

MeterFrame *framed(KestLevelsView *levels, QWidget *parent)
{
    auto *frame = new MeterFrame(parent);
    frame->setFixedHeight(meterHeight);
    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(levels);
    return frame;
}

} // namespace

MicrophoneTrialView::MicrophoneTrialView(QWidget *parent)
    : QWidget(parent)
    , m_name(new ReadoutField(this))
    , m_levels(new KestLevelsView)
    , m_words(new QLabel(this))
    , m_button(new ControlButton(this))
{
    m_name->setObjectName(QStringLiteral("trialNameField"));
    m_name->setAccessibleName(tr("Microphone Name"));
    m_name->setImage(QStringLiteral("microphone"));
    m_name->setElided(true);
    m_levels->setObjectName(QStringLiteral("trialLevelsView"));
    m_levels->setAccessibleName(tr("Input Level"));
    m_words->setObjectName(QStringLiteral("trialWords"));
    m_words->setWordWrap(true);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    m_button->setObjectName(QStringLiteral("trialButton"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(gap);
    layout->addWidget(m_name);
    layout->addWidget(framed(m_levels, this));
    layout->addWidget(m_words);
    layout->addWidget(m_button, 0, Qt::AlignLeft);
    m_readings.setTimerType(Qt::PreciseTimer);
    m_readings.setInterval(interval);
    m_readings.callOnTimeout(this, &MicrophoneTrialView::takeReading);
    m_limitTimer.setSingleShot(true);
    m_limitTimer.setInterval(timeLimit);
    m_limitTimer.callOnTimeout(this, &MicrophoneTrialView::limitReached);
    m_nameTimer.setInterval(nameInterval);
    m_nameTimer.callOnTimeout(this, &MicrophoneTrialView::showName);
}

MicrophoneTrialView::~MicrophoneTrialView()
{
    if (m_trial)
        m_trial->stop();
}

void MicrophoneTrialView::watch(MicrophoneTrial &trial)
{
    m_trial = &trial;
    onSeenClick(*m_button, this, [this] { startOrStop(); });
    connect(&trial, &MicrophoneTrial::troubleOccurred, this, &MicrophoneTrialView::tellTrouble);
    showName();
    showButton();
    say(tr(invitation));
}

QString MicrophoneTrialView::text() const
{
    return m_words->text();
}

void MicrophoneTrialView::startOrStop()
{
    if (!m_trial->isListening())
        return start();
    stop();
    say(m_heard ? tr(wereHeard) : tr(invitation));
}

void MicrophoneTrialView::start()
{
    m_heard = false;
    m_loudReadings = 0;
    m_trial->start();
    m_readings.start();
    m_limitTimer.start();
    showButton();
    say(tr(notYetHeard)); // not aloud: it would hear itself
}

void MicrophoneTrialView::stop()
{
    if (!m_trial)
        return;
    m_trial->stop();
    m_readings.stop();
    m_limitTimer.stop();
    m_levels->updatePowerLevel(unlit);
    showButton();
}

void MicrophoneTrialView::takeReading()
{
    const float level = m_trial->level();
    m_levels->updatePowerLevel(level);
    m_loudReadings = level >= audible ? m_loudReadings + 1 : 0;
    if (m_heard || m_loudReadings < readingsHeard)
        return;
    m_heard = true;
    sayAloud(tr(areHeard));
}

void MicrophoneTrialView::limitReached()
{
    stop();
    sayAloud(m_heard ? tr(wereHeard) : tr(nothingHeard));
}

void MicrophoneTrialView::tellTrouble(RecordingTrouble trouble)
{
    stop();
    switch (trouble) {
    case RecordingTrouble::NoMicrophone:
        return sayAloud(tr("No microphone was found. Plug one in and try again."));
    case RecordingTrouble::MicrophoneLost:
        return sayAloud(tr("The microphone went away. Plug it in and try again."));
    case RecordingTrouble::NoSoundServer:
    case RecordingTrouble::SoundServerLost:
        return sayAloud(tr("No sound server answers. Try again in a moment."));
    case RecordingTrouble::NoSound:
    case RecordingTrouble::DiskFull:
    case RecordingTrouble::CannotWrite:
    case RecordingTrouble::EncoderMissing:
        break; // the last three are of files, and here is none
    }
    sayAloud(tr("The microphone gives no sound. Try again, or choose another one."));
}

void MicrophoneTrialView::showName()
{
    const QString name = m_trial->microphone();
    if (!name.isEmpty()) {
        m_nameless.invalidate();
        m_name->setText(name);
    } else if (!m_nameless.isValid()) {
        m_nameless.start();
    } else if (m_nameless.hasExpired(namePatience)) {
        m_name->setText(tr("No microphone found"));
    }
    m_name->setToolTip(m_name->text());
}

void MicrophoneTrialView::showButton()
{
    const bool listening = m_trial->isListening();
    m_button->setText(listening ? tr("Stop Listening") : tr("Try the Microphone"));
    m_button->setAccessibleName(m_button->text());
    m_button->setHint(listening ? tr("Close the microphone") : tr("Open the microphone and show its level"));
}

void MicrophoneTrialView::say(const QString &words)
{
    m_words->setText(words);
    m_words->setAccessibleName(words);
}

/// By a screen reader too.
void MicrophoneTrialView::sayAloud(const QString &words)
{
    say(words);
    announce(*m_words, words, Politeness::Assertive);
}

void MicrophoneTrialView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_trial)
        return;
    showName();
    m_nameTimer.start();
}

// Also when it is minimised.
void MicrophoneTrialView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_nameTimer.stop();
    if (m_trial && m_trial->isListening()) {
        stop();
        say(tr(invitation));
    }
}

/// The button must not slip away from under the pointer: there is room for the longest of the usual sentences at once.
void MicrophoneTrialView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QRect room(0, 0, m_words->width(), 10 * m_words->fontMetrics().height());
    int height = 0;
    for (const QString &words : {tr(invitation), tr(notYetHeard), tr(areHeard), tr(wereHeard), tr(nothingHeard)})
        height = qMax(height, m_words->fontMetrics().boundingRect(room, Qt::TextWordWrap, words).height());
    m_words->setMinimumHeight(height);
}

} // namespace kest
