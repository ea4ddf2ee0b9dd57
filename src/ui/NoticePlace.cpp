#include "ui/NoticePlace.h"

#include <array>

namespace kest {

namespace {

constexpr std::array mostUrgentFirst{NoticePlace::Subject::Progress, NoticePlace::Subject::Hint,
                                     NoticePlace::Subject::Recording, NoticePlace::Subject::Warning,
                                     NoticePlace::Subject::Size, NoticePlace::Subject::Mail,
                                     NoticePlace::Subject::Settings, NoticePlace::Subject::Status};

bool isTrouble(NoticePlace::Subject subject)
{
    return subject == NoticePlace::Subject::Recording || subject == NoticePlace::Subject::Mail
        || subject == NoticePlace::Subject::Settings || subject == NoticePlace::Subject::Warning;
}

} // namespace

NoticePlace::NoticePlace(QObject *parent)
    : QObject(parent)
{
    goesAfter(m_hintTimer, hintDuration, Subject::Hint);
    goesAfter(m_settingsTimer, settingsDuration, Subject::Settings);
    goesAfter(m_sizeTimer, sizeDuration, Subject::Size);
}

void NoticePlace::goesAfter(QTimer &timer, int milliseconds, Subject subject)
{
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    connect(&timer, &QTimer::timeout, this, [this, subject] { withdraw(subject); });
}

QTimer *NoticePlace::timerOf(Subject subject)
{
    switch (subject) {
    case Subject::Hint:
        return &m_hintTimer;
    case Subject::Settings:
        return &m_settingsTimer;
    case Subject::Size:
        return &m_sizeTimer;
    default:
        return nullptr;
    }
}

void NoticePlace::tell(Subject subject, const QString &text, const QString &detail)
{
    if (QTimer *timer = timerOf(subject))
        text.isEmpty() ? timer->stop() : timer->start();
    // An answer to an earlier command must not stand before what just went wrong.
    if (isTrouble(subject) && !text.isEmpty())
        withdraw(Subject::Hint);
    if (m_notices.value(subject) == Notice{text, detail})
        return;
    if (text.isEmpty())
        m_notices.remove(subject);
    else
        m_notices.insert(subject, {text, detail});
    Q_EMIT changed();
}

QString NoticePlace::text() const
{
    return m_notices.value(subject()).text;
}

QString NoticePlace::detail() const
{
    return m_notices.value(subject()).detail;
}

NoticePlace::Subject NoticePlace::subject() const
{
    for (const Subject subject : mostUrgentFirst) {
        if (m_notices.contains(subject))
            return subject;
    }
    return Subject::Status;
}

} // namespace kest
