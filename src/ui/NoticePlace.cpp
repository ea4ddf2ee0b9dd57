#include "ui/NoticePlace.h"

#include <array>

namespace kest {

namespace {

constexpr std::array mostUrgentFirst{NoticePlace::Subject::Progress, NoticePlace::Subject::Recording,
                                     NoticePlace::Subject::Mail, NoticePlace::Subject::Settings,
                                     NoticePlace::Subject::Hint, NoticePlace::Subject::Status};

} // namespace

NoticePlace::NoticePlace(QObject *parent)
    : QObject(parent)
{
    m_hintTimer.setSingleShot(true);
    m_hintTimer.setInterval(hintDuration);
    connect(&m_hintTimer, &QTimer::timeout, this, [this] { withdraw(Subject::Hint); });
}

void NoticePlace::tell(Subject subject, const QString &text, const QString &detail)
{
    if (subject == Subject::Hint)
        text.isEmpty() ? m_hintTimer.stop() : m_hintTimer.start();
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
