#pragma once

#include "platform/MailTransport.h"
#include "platform/linux/mail/MailServices.h"

#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>

namespace kest {

struct MailSignature;

/// Carries scripting calls over the session bus.
///
/// While a call waits, a local event loop without user input runs, so the
/// window paints and timers fire. Main thread.
class DBusMailTransport : public MailTransport
{
    Q_OBJECT

public:
    struct Limits {
        std::chrono::milliseconds answer{120'000}; ///< For one call, since a file that it hands over last moved on.
        std::chrono::milliseconds start{30'000};   ///< For a mail application to come up.
        /// The same, when the start before has come to nothing.
        std::chrono::milliseconds startAgain{5'000};
        /// For one call when the one before was not answered in time; at most `answer`. A press makes many calls, and
        /// must not take the whole limit for each of them.
        std::chrono::milliseconds answerAgain{5'000};
    };

    /// Does nothing but ask for `watch` when the event loop runs.
    explicit DBusMailTransport(QObject *parent = nullptr);
    explicit DBusMailTransport(const Limits &limits, QObject *parent = nullptr);

    MailReply call(const MailCall &call) override;
    bool isBusy() const override { return m_isBusy; }
    void inquire(Starting starting, QObject *context,
                 std::function<void(const std::optional<Error> &hindrance)> told) override;

    /// Begins to watch for mail applications and their focus.
    void watch();

    /// What it knows of who serves.
    MailServices &services() { return m_services; }

private:
    MailReply carryOut(const MailCall &call);
    std::optional<QDBusMessage> delivered(const MailCall &call, const QVariantList &arguments, Error *error);
    std::optional<QString> reachedService(bool onlyIfRunning, Error *error);
    bool waitForNames(Error *error);
    bool startMailApplication(Error *error);
    bool checkVersion(const QString &service, Error *error);
    std::optional<QDBusMessage> answerTo(const QDBusMessage &message, Error *error);
    bool waitForService(std::chrono::milliseconds limit);
    void setBusy(bool busy);

    Limits m_limits;
    MailServices m_services;
    QString m_checkedService; // whose protocol version is known to be ours
    bool m_startCameToNothing = false;
    bool m_lastAnswerWasLate = false;
    bool m_isBusy = false;
};

} // namespace kest
