#include "ui/NoticePlace.h"

#include <array>

namespace kest {

namespace {

constexpr std::array mostUrgentFirst{NoticePlace::Subject::Progress, NoticePlace::Subject::Hint,
                                     NoticePlace::Subject::Recording, NoticePlace::Subject::Mail,
                                     NoticePlace::Subject::Settings, NoticePlace::Subject::Status};

bool isTrouble(NoticePlace::Subject subject)
{
    return subject == NoticePlace::Subject::Recording || subject == NoticePlace::Subject::Mail
        || subject == NoticePlace::Subject::Settings;
}

} // namespace

NoticePlace::NoticePlace(QObject *parent)
    : QObject(parent)
{
    m_hintTimer.setSingleShot(true);
    m_hintTimer.setInterval(hintDuration);
    connect(&m_hintTimer, &QTimer::timeout, this, [this] { withdraw(Subject::Hint); });
    m_settingsTimer.setSingleShot(true);
    m_settingsTimer.setInterval(settingsDuration);
    connect(&m_settingsTimer, &QTimer::timeout, this, [this] { withdraw(Subject::Settings); });
}

void NoticePlace::tell(Subject subject, const QString &text, const QString &detail)
{
    if (subject == Subject::Hint)
        text.isEmpty() ? m_hintTimer.stop() : m_hintTimer.start();
    if (subject == Subject::Settings)
        text.isEmpty() ? m_settingsTimer.stop() : m_settingsTimer.start();
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
