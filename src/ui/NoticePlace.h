#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>

namespace kest {

/// The quiet line of the window that speaks to the person: at most one text at
/// a time, the most urgent of those that wait.
///
/// Main thread. Knows no widget.
class NoticePlace : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    /// What a notice is about; each subject holds one notice. In order of
    /// urgency, least first.
    enum class Subject {
        Status,    ///< What the window is doing anyway.
        Settings,  ///< The settings could not be kept; goes away after a longer while.
        Mail,      ///< The mail application cannot be reached at all.
        Size,      ///< The recording grows large; goes away after a while.
        Warning,   ///< The recording under way is silent, or too loud.
        Recording, ///< The recording ended, or never began.
        Hint,      ///< An answer to a command; goes away after a while, or before a new trouble.
        Progress,  ///< Something is being waited for.
    };

    explicit NoticePlace(QObject *parent = nullptr);

    /// One sentence of at most 60 characters or so, and what more there is to
    /// say. An empty text withdraws the subject's notice.
    void tell(Subject subject, const QString &text, const QString &detail = {});
    void withdraw(Subject subject) { tell(subject, QString()); }

    /// True while there is a notice about it, shown or waiting.
    bool holds(Subject subject) const { return m_notices.contains(subject); }

    /// The most urgent notice; empty when there is none.
    QString text() const;

    /// The rest of it; may be empty.
    QString detail() const;

    /// The notice that this subject holds, shown or not; empty when it holds
    /// none.
    QString textOf(Subject subject) const { return m_notices.value(subject).text; }

    /// Its subject; Status when there is none.
    Subject subject() const;

    /// How long a hint stays, in milliseconds.
    static constexpr int hintDuration = 8000;

    /// How long a word about the size stays, in milliseconds.
    static constexpr int sizeDuration = 8000;

    /// How long a word about the settings stays, in milliseconds.
    static constexpr int settingsDuration = 30000;

Q_SIGNALS:
    void changed();

private:
    struct Notice {
        QString text;
        QString detail;
        friend bool operator==(const Notice &, const Notice &) = default;
    };

    void goesAfter(QTimer &timer, int milliseconds, Subject subject);
    QTimer *timerOf(Subject subject);

    QHash<Subject, Notice> m_notices;
    QTimer m_hintTimer;
    QTimer m_settingsTimer;
    QTimer m_sizeTimer;
};

inline size_t qHash(NoticePlace::Subject subject, size_t seed = 0)
{
    return ::qHash(static_cast<int>(subject), seed);
}

} // namespace kest
