#pragma once

#include "platform/Error.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace kest {

class MailServices;

/// One question, asked in the background: does a mail application answer?
///
/// Ends itself when it has told the answer. Main thread.
class MailInquiry : public QObject
{
    Q_OBJECT

public:
    struct Limits {
        std::chrono::milliseconds start;  ///< For a mail application to come up.
        std::chrono::milliseconds answer; ///< For its answer.
    };
    using Told = std::function<void(const std::optional<Error> &hindrance)>;

    /// `services` outlives it.
    MailInquiry(MailServices &services, const Limits &limits, Told told, QObject *parent);

    /// Call once.
    void begin(bool startWhereNone);

    /// Nobody wants to know any more.
    void abandon();

private:
    void proceed();
    void startOne();
    void ask();
    void tell(const std::optional<Error> &hindrance);

    MailServices &m_services;
    Limits m_limits;
    Told m_told;
    QTimer m_timer;
    std::optional<QString> m_startedName; // for people
    bool m_startWhereNone = false;
    bool m_asked = false;
};

} // namespace kest
