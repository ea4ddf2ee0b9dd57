#include "platform/linux/mail/DBusMailTransport.h"

#include "platform/linux/mail/DefaultMailApplication.h"
#include "platform/linux/mail/MailErrors.h"
#include "platform/linux/mail/MailFileDescriptor.h"
#include "platform/linux/mail/MailInquiry.h"
#include "platform/linux/mail/MailSignatures.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

constexpr uint protocolVersion = 1;
constexpr int withoutLimit = std::numeric_limits<int>::max(); // of the bus library's own

const QString applicationPath = QStringLiteral("/org/kest/Mail1");
const QString applicationInterface = QStringLiteral("org.kest.Mail1.Application");

QDBusMessage busMessage(const QString &service, const MailCall &call, const QVariantList &arguments)
{
    const QString properties = u"org.freedesktop.DBus.Properties"_s;
    QDBusMessage message;
    switch (call.kind) {
    case MailCall::Kind::Method:
        message = QDBusMessage::createMethodCall(service, call.objectPath, call.interface, call.member);
        message.setArguments(arguments);
        break;
    case MailCall::Kind::ReadProperty:
        message = QDBusMessage::createMethodCall(service, call.objectPath, properties, u"Get"_s);
        message.setArguments({call.interface, call.member});
        break;
    case MailCall::Kind::WriteProperty:
        message = QDBusMessage::createMethodCall(service, call.objectPath, properties, u"Set"_s);
        message.setArguments({call.interface, call.member, QVariant::fromValue(QDBusVariant(arguments.first()))});
        break;
    }
    message.setAutoStartService(false);
    return message;
}

/// Whether it makes or sends a mail, which goes on in a mail application that does not answer in time.
bool isMakingMail(const MailCall &call)
{
    return call.member == u"Send" || call.member == u"NewMessage" || (call.member == u"Reply" && call.objectPath == applicationPath);
}

/// Whether it is about an object, which no later run of the mail application has.
bool isAboutObject(const MailCall &call)
{
    return call.objectPath != applicationPath || call.member == u"Reply";
}

} // namespace

DBusMailTransport::DBusMailTransport(QObject *parent)
    : DBusMailTransport(Limits(), parent)
{
}

DBusMailTransport::DBusMailTransport(const Limits &limits, QObject *parent)
    : MailTransport(parent)
    , m_limits(limits)
{
    registerNamedDescriptor();
    connect(&m_services, &MailServices::changed, this, [this] {
        m_checkedService.clear();
        m_lastAnswerWasLate = false;
    });
    connect(&m_services, &MailServices::appeared, this, &MailTransport::mailApplicationAppeared);
    connect(&m_services, &MailServices::vanished, this, &MailTransport::mailApplicationVanished);
    connect(&m_services, &MailServices::focusGained, this, &MailTransport::mailApplicationFocusGained);
    connect(&m_services, &MailServices::focusLost, this, &MailTransport::mailApplicationFocusLost);
    connect(&m_services, &MailServices::handOverProgressed, this, &MailTransport::handOverProgressed);
    QTimer::singleShot(0, this, &DBusMailTransport::watch);
}

void DBusMailTransport::watch()
{
    m_services.connectToBus();
}

MailReply DBusMailTransport::call(const MailCall &call)
{
    if (m_isBusy)
        return {{}, mailError(MailErrorCode::Busy)};
    setBusy(true);
    const auto idle = qScopeGuard([this] { setBusy(false); });
    const MailReply reply = carryOut(call);
    if (reply.error && concernsAllCalls(*reply.error))
        Q_EMIT mailApplicationUnreachable(*reply.error);
    return reply;
}

void DBusMailTransport::inquire(Starting starting, QObject *context,
                                std::function<void(const std::optional<Error> &)> told)
{
    auto *inquiry = new MailInquiry(m_services, {m_limits.start, m_limits.answer}, std::move(told), this);
    connect(context, &QObject::destroyed, inquiry, &MailInquiry::abandon);
    inquiry->begin(starting == Starting::WhereNone);
}

MailReply DBusMailTransport::carryOut(const MailCall &call)
{
    const MailSignature *signature = mailSignature(call);
    if (!signature)
        return {{}, mailError(MailErrorCode::Unsupported)};
    Error error;
    const auto arguments = busArguments(*signature, call, &error);
    if (!arguments)
        return {{}, error};
    const auto answer = delivered(call, *arguments, &error);
    if (!answer)
        return {{}, isMakingMail(call) ? withDoubt(error) : error};
    if (call.kind == MailCall::Kind::WriteProperty)
        return {};
    const auto values = plainValues(*signature, *answer);
    return values ? MailReply{*values, {}} : MailReply{{}, mailError(MailErrorCode::Malformed)};
}

std::optional<QDBusMessage> DBusMailTransport::delivered(const MailCall &call, const QVariantList &arguments,
                                                         Error *error)
{
    constexpr int attempts = 2; // the first may meet one that has just gone
    for (int attempt = 1;; ++attempt) {
        const auto service = reachedService(isAboutObject(call), error);
        if (!service)
            return std::nullopt;
        Error failure;
        if (checkVersion(*service, &failure)) {
            if (const auto answer = answerTo(busMessage(*service, call, arguments), &failure))
                return answer;
        }
        if (failure.code != static_cast<int>(MailErrorCode::NotDelivered) || attempt == attempts) {
            handBack(error, failure);
            return std::nullopt;
        }
        // The bus announced the end before it refused the call, so the news is here already.
        QEventLoop().processEvents(QEventLoop::ExcludeUserInputEvents);
    }
}

std::optional<QString> DBusMailTransport::reachedService(bool onlyIfRunning, Error *error)
{
    if (!m_services.connectToBus()) {
        handBack(error, mailError(MailErrorCode::NoBus));
        return std::nullopt;
    }
    if (!waitForNames(error))
        return std::nullopt;
    if (onlyIfRunning && m_services.preferred().isEmpty()) {
        handBack(error, mailError(MailErrorCode::Vanished));
        return std::nullopt;
    }
    if (m_services.preferred().isEmpty() && !startMailApplication(error))
        return std::nullopt;
    return m_services.preferred();
}

bool DBusMailTransport::waitForNames(Error *error)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!m_services.isReady()) {
        QEventLoop loop;
        bool moved = false;
        connect(&m_services, &MailServices::changed, &loop, [&] { moved = true, loop.quit(); });
        QTimer::singleShot(m_limits.start, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        if (!moved) {
            const bool waited = elapsed.hasExpired(m_limits.start.count());
            handBack(error, mailError(waited ? MailErrorCode::NoBus : MailErrorCode::Ending));
            return false;
        }
    }
    return true;
}

bool DBusMailTransport::startMailApplication(Error *error)
{
    const auto application = defaultMailApplication();
    if (!application || !startDetached(*application)) {
        handBack(error, mailError(MailErrorCode::NoApplication, application ? application->name : QString()));
        return false;
    }
    if (waitForService(m_startCameToNothing ? m_limits.startAgain : m_limits.start)) {
        m_startCameToNothing = false;
        return true;
    }
    m_startCameToNothing = true;
    handBack(error, mailError(MailErrorCode::NoAddOn, application->name));
    return false;
}

bool DBusMailTransport::waitForService(std::chrono::milliseconds limit)
{
    QEventLoop loop;
    connect(&m_services, &MailServices::appeared, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    return !m_services.preferred().isEmpty();
}

bool DBusMailTransport::checkVersion(const QString &service, Error *error)
{
    if (service == m_checkedService)
        return true;
    const MailCall reading{applicationPath, applicationInterface, u"ProtocolVersion"_s, MailCall::Kind::ReadProperty, {}};
    const auto answer = answerTo(busMessage(service, reading, {}), error);
    if (!answer)
        return false;
    const auto values = plainValues(*mailSignature(reading), *answer);
    if (!values || values->first().toUInt() != protocolVersion) {
        handBack(error, mailError(MailErrorCode::Mismatch));
        return false;
    }
    m_checkedService = service;
    return true;
}

std::optional<QDBusMessage> DBusMailTransport::answerTo(const QDBusMessage &message, Error *error)
{
    const auto limit = m_lastAnswerWasLate ? std::min(m_limits.answerAgain, m_limits.answer) : m_limits.answer;
    QDBusPendingCallWatcher watcher(m_services.bus().asyncCall(message, withoutLimit));
    QEventLoop loop;
    connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    QTimer clock;
    clock.setSingleShot(true);
    clock.callOnTimeout(&loop, &QEventLoop::quit);
    clock.start(limit);
    QElapsedTimer elapsed;
    elapsed.start();
    // A large file takes its time.
    connect(&m_services, &MailServices::handOverProgressed, &clock, [&] { clock.start(limit), elapsed.start(); });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!watcher.isFinished()) {
        m_lastAnswerWasLate = !clock.isActive();
        handBack(error, mailError(m_lastAnswerWasLate ? MailErrorCode::TimedOut : MailErrorCode::Ending));
        return std::nullopt;
    }
    if (watcher.isError()) {
        const Error failure = mailError(watcher.error(), elapsed, limit);
        m_lastAnswerWasLate = failure.code == static_cast<int>(MailErrorCode::TimedOut);
        handBack(error, failure);
        return std::nullopt;
    }
    m_lastAnswerWasLate = false;
    return watcher.reply();
}

void DBusMailTransport::setBusy(bool busy)
{
    m_isBusy = busy;
    Q_EMIT busyChanged(busy);
}

} // namespace kest
