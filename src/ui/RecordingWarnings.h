#pragma once

#include "platform/AudioFileRecorder.h"

#include <QObject>
#include <QPointer>

namespace kest {

class NoticePlace;

/// Says while there is time what is wrong with a recording under way, or will
/// be: nothing is heard, it is too loud, it grows too large for mail.
///
/// The words go to the notice place, and away again by themselves. Main thread.
class RecordingWarnings : public QObject
{
    Q_OBJECT

public:
    /// `notices` must outlive it.
    explicit RecordingWarnings(NoticePlace &notices, QObject *parent = nullptr);

    /// Begins with a new recording, and forgets the one before; null: none could
    /// be made.
    void watch(AudioFileRecorder *recorder);

    /// To be called now and then while it records: has its file grown past one
    /// of the sizes?
    void look();

    /// The recording is over. A warning goes, unless nothing was ever heard.
    void recordingEnded();

    /// What was recorded is not to be sent any more.
    void forget();

    /// Bytes at which something is said, once each. Many mail servers take no
    /// mail over 25 MB; an attachment grows by 37 % on its way (RFC 2045,
    /// 6.8: four letters for three bytes, and the line ends), so that a file of
    /// 18 MB just passes.
    static constexpr qint64 sizes[] = {5'000'000, 10'000'000, 18'000'000};

Q_SIGNALS:
    /// `words` were put into the window. For those who speak to the person while
    /// it is hidden.
    void warned(const QString &words);

private:
    void tellInputCondition(InputCondition condition, const QString &microphone);

    NoticePlace &m_notices;
    QPointer<AudioFileRecorder> m_recorder;
    InputCondition m_condition = InputCondition::Unknown; // Unknown after the others is passed over
    bool m_heard = false;
    qint64 m_toldSize = 0;
};

} // namespace kest
