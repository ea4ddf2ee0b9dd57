// The recording controls of MainWindowController.

#include "platform/AlertPresenter.h"
#include "ui/ApplicationDelegate.h"
#include "ui/ListeningPanel.h"
#include "ui/MainWindowController.h"
#include "ui/RecordingWarnings.h"
#include "ui/Wording.h"
#include "ui_MainWindow.h"

namespace kest {

namespace {

constexpr std::chrono::milliseconds statusInterval{100};

} // namespace

void MainWindowController::audioRecordingRecord()
{
    if (m_busy)
        return;
    setCanReplyOrCompose(true);
    removeAttachmentMenuSelection();
    const std::optional<FolderURL> folder = recordingsFolder();
    if (!folder)
        return tellDirectoryNotFound();
    m_notices.withdraw(NoticePlace::Subject::Recording);
    m_notices.withdraw(NoticePlace::Subject::Hint);
    const bool hadFocus = m_ui->recordButton->hasFocus();
    m_listening->showRecording({}, std::nullopt); // the microphone must not hear what plays
    m_audioRecorder.reset();
    m_audioRecorder = std::make_unique<AudioRecorder>(m_dependencies.recorderFactory, m_dependencies.clock);
    connectRecorder();
    m_audioRecorder->prepareToRecordToDirectory(*folder, unusedRecordingFileName(*folder, m_dependencies.clock.now()));
    m_audioRecorder->recordMessage();
    setRecordingActive(true);
    setRecordingExists(true);
    startStatusTimer();
    afterRecordingStarted(hadFocus);
}

std::optional<FolderURL> MainWindowController::recordingsFolder()
{
    // The alert has words of its own; the slot is given for those who log.
    Error error;
    return m_dependencies.delegate.recordingsDirectoryURLWithError(&error);
}

void MainWindowController::tellDirectoryNotFound()
{
    m_dependencies.beep();
    m_dependencies.alertPresenter.runModal(
        {tr("Directory not found"),
         tr("You need to go into Preferences and choose the directory recordings should be saved to."),
         {tr("Cancel")}});
}

void MainWindowController::connectRecorder()
{
    m_recordingTrouble.reset();
    connect(m_audioRecorder.get(), &AudioRecorder::troubleOccurred, this, &MainWindowController::tellTrouble);
    connect(m_audioRecorder.get(), &AudioRecorder::finished, this, &MainWindowController::recordingFinished);
}

/// What the window adds of its own once the recording is under way.
void MainWindowController::afterRecordingStarted(bool recordHadFocus)
{
    // Disabled, Record passed its focus on to whatever came next: a second press of the same key must not send mail.
    if (recordHadFocus)
        pauseResumeButton()->setFocus(Qt::OtherFocusReason);
    namePauseResumeButton(false);
    m_warnings->watch(m_audioRecorder->recorder());
    m_listening->showRecordingUnderWay(m_audioRecorder->recordingURL());
    if (!m_audioRecorder->recorder())
        m_notices.tell(NoticePlace::Subject::Recording, wordsForNothingKept(RecordingTrouble::CannotWrite));
    updateStatusNotice();
}

void MainWindowController::tellTrouble(RecordingTrouble trouble, const QString &detail)
{
    m_recordingTrouble = {trouble, detail};
    sayTrouble(wordsFor(trouble), detail);
    updateStatusNotice();
}

void MainWindowController::sayTrouble(const QString &words, const QString &detail)
{
    m_notices.tell(NoticePlace::Subject::Recording, words, detail);
    Q_EMIT recordingTroubleTold(words);
}

void MainWindowController::sayNothingKept(RecordingTrouble trouble, const QString &detail)
{
    const QString words = wordsForNothingKept(trouble);
    if (words != wordsFor(trouble))
        sayTrouble(words, detail);
}

void MainWindowController::recordingFinished(bool kept)
{
    if (!kept) {
        m_listening->showRecording({}, std::nullopt);
        if (m_recordingTrouble)
            sayNothingKept(m_recordingTrouble->first, m_recordingTrouble->second);
        else // stopped before the microphone gave its first sound
            sayTrouble(wordsForEmptyRecording(), {});
        return;
    }
    if (AudioFileRecorder *recorder = m_audioRecorder->recorder())
        m_listening->showRecording(recorder->url(), recorder->currentTime());
}

void MainWindowController::connectListening()
{
    connect(m_listening.get(), &ListeningPanel::openURLRequested, this, &MainWindowController::openURLRequested);
    connect(this, &MainWindowController::busyChanged, m_listening.get(), &ListeningPanel::setBusy);
    // A discarded recording is none, until it comes back as what it was.
    connect(m_listening.get(), &ListeningPanel::discarded, this, [this] {
        m_existedBeforeDiscard = m_recordingExists;
        setRecordingExists(false);
        updateStatusNotice();
    });
    connect(m_listening.get(), &ListeningPanel::restored, this, [this] {
        setRecordingExists(m_existedBeforeDiscard);
        updateStatusNotice();
    });
}

void MainWindowController::startStatusTimer()
{
    // The one before is only replaced. Where it was running it goes on ticking.
    m_recordingStatusTimer = new QTimer(this);
    m_recordingStatusTimer->setTimerType(Qt::PreciseTimer);
    m_recordingStatusTimer->setInterval(statusInterval);
    connect(m_recordingStatusTimer, &QTimer::timeout, this, &MainWindowController::audioRecordingUpdateTimeWithTimer);
    m_recordingStatusTimer->start();
}

void MainWindowController::invalidateStatusTimer()
{
    if (!m_recordingStatusTimer)
        return;
    m_recordingStatusTimer->stop();
    m_recordingStatusTimer->deleteLater();
}

void MainWindowController::audioRecordingPauseResume()
{
    if (m_busy)
        return;
    const bool resumes = m_audioRecorder && m_audioRecorder->recordingPaused();
    if (resumes) {
        m_audioRecorder->resumeMessage();
        startStatusTimer();
    } else {
        if (m_audioRecorder)
            m_audioRecorder->pauseMessage();
        invalidateStatusTimer();
        setRecordingTime(currentRecordingTime());
    }
    const QString image = resumes ? QStringLiteral("pause") : QStringLiteral("resume");
    pauseResumeButton()->setImage(image);
    pauseResumeButton()->setAlternateImage(image + QStringLiteral("-alt"));
    namePauseResumeButton(!resumes);
    updateStatusNotice();
}

void MainWindowController::namePauseResumeButton(bool paused)
{
    pauseResumeButton()->setAccessibleName(paused ? tr("Resume") : tr("Pause"));
    pauseResumeButton()->setHint(paused ? tr("Go on recording") : tr("Pause the recording"));
}

void MainWindowController::audioRecordingStop()
{
    if (m_audioRecorder)
        m_audioRecorder->stopRecording();
    invalidateStatusTimer();
    setRecordingTime(currentRecordingTime());
    levelsView()->updatePowerLevel(-160.0F);
    setRecordingActive(false);
    setCanReplyOrCompose(false);
    updateStatusNotice();
}

void MainWindowController::audioRecordingUpdateTimeWithTimer()
{
    setRecordingTime(currentRecordingTime());
    const double level = m_audioRecorder ? m_audioRecorder->recordingLevel() : 0.0;
    levelsView()->updatePowerLevel(static_cast<float>(level));
}

QString MainWindowController::currentRecordingTime()
{
    return m_audioRecorder ? m_audioRecorder->recordingTime() : QString();
}

} // namespace kest
