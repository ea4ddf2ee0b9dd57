#include "ui/NoticePlace.h"

#include <array>

namespace kest {

namespace {

constexpr std::array mostUrgentFirst{NoticePlace::Subject::Progress, NoticePlace::Subject::Recording,
                                     NoticePlace::Subject::Settings, NoticePlace::Subject::Hint,
                                     NoticePlace::Subject::Status};

} // namespace

NoticePlace::NoticePlace(QObject *parent)
    : QObject(parent)
{
    m_hintTimer.setSingleShot(true);
    m_hintTimer.setInterval(hintDuration);
    connect(&m_hintTimer, &QTimer::timeout, this, [this] { withdraw(Subject::Hint); });
}

void NoticePlace::tell(Subject subject, const QString &text)
{
    if (subject == Subject::Hint)
        text.isEmpty() ? m_hintTimer.stop() : m_hintTimer.start();
    if (m_texts.value(subject) == text)
        return;
    if (text.isEmpty())
        m_texts.remove(subject);
    else
        m_texts.insert(subject, text);
    Q_EMIT changed();
}

QString NoticePlace::text() const
{
    return m_texts.value(subject());
}

NoticePlace::Subject NoticePlace::subject() const
{
    for (const Subject subject : mostUrgentFirst) {
        if (m_texts.contains(subject))
            return subject;
    }
    return Subject::Status;
}

} // namespace kest
