#include "ui/RecordingWarnings.h"

#include "ui/NoticePlace.h"
#include "ui/Wording.h"

namespace kest {

RecordingWarnings::RecordingWarnings(NoticePlace &notices, QObject *parent)
    : QObject(parent)
    , m_notices(notices)
{
}

void RecordingWarnings::watch(AudioFileRecorder *recorder)
{
    if (m_recorder)
        disconnect(m_recorder, nullptr, this, nullptr);
    forget();
    m_recorder = recorder;
    m_condition = InputCondition::Unknown;
    m_heard = false;
    m_toldSize = 0;
    if (recorder)
        connect(recorder, &AudioFileRecorder::inputConditionChanged, this, &RecordingWarnings::tellInputCondition);
}

void RecordingWarnings::tellInputCondition(InputCondition condition, const QString &microphone)
{
    if (condition != InputCondition::Unknown)
        m_condition = condition;
    m_heard = m_heard || condition == InputCondition::Heard || condition == InputCondition::Clipping;
    const QString words = wordsFor(condition, microphone);
    m_notices.tell(NoticePlace::Subject::Warning, words);
    if (!words.isEmpty())
        Q_EMIT warned(words);
}

void RecordingWarnings::look()
{
    const qint64 size = m_recorder ? m_recorder->fileSize() : 0;
    qint64 reached = 0;
    for (const qint64 step : sizes)
        reached = size >= step ? step : reached;
    if (reached <= m_toldSize)
        return;
    m_toldSize = reached;
    m_notices.tell(NoticePlace::Subject::Size, wordsForSize(reached));
    Q_EMIT warned(wordsForSize(reached));
}

void RecordingWarnings::recordingEnded()
{
    // What it still says is of no use any more.
    if (m_recorder)
        disconnect(m_recorder, nullptr, this, nullptr);
    forget();
    if (m_condition == InputCondition::Silent && !m_heard)
        m_notices.tell(NoticePlace::Subject::Warning, wordsForSilentRecording());
}

void RecordingWarnings::forget()
{
    m_notices.withdraw(NoticePlace::Subject::Size);
    m_notices.withdraw(NoticePlace::Subject::Warning);
}

} // namespace kest
