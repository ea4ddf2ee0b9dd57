#include "platform/linux/mail/MailInquiry.h"

#include "platform/linux/mail/DefaultMailApplication.h"
#include "platform/linux/mail/MailErrors.h"
#include "platform/linux/mail/MailServices.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace kest {

using namespace Qt::StringLiterals;

MailInquiry::MailInquiry(MailServices &services, const Limits &limits, Told told, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_limits(limits)
    , m_told(std::move(told))
{
    m_timer.setSingleShot(true);
    connect(&m_services, &MailServices::changed, this, &MailInquiry::proceed);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        tell(mailError(m_services.isReady() ? MailErrorCode::NoAddOn : MailErrorCode::NoBus,
                       m_startedName.value_or(QString())));
    });
}

void MailInquiry::begin(bool startWhereNone)
{
    m_startWhereNone = startWhereNone;
    if (!m_services.connectToBus())
        return tell(mailError(MailErrorCode::NoBus));
    m_timer.start(m_limits.start);
    proceed();
}

void MailInquiry::abandon()
{
    m_told = nullptr;
    deleteLater();
}

void MailInquiry::proceed()
{
    if (!m_told || m_asked || !m_services.isReady())
        return;
    if (!m_services.preferred().isEmpty())
        return ask();
    if (!m_startWhereNone)
        return tell(mailError(MailErrorCode::NotRunning));
    if (!m_startedName)
        startOne();
}

void MailInquiry::startOne()
{
    const auto application = defaultMailApplication();
    if (!application || !startDetached(*application))
        return tell(mailError(MailErrorCode::NoApplication, application ? application->name : QString()));
    m_startedName = application->name;
}

void MailInquiry::ask()
{
    m_asked = true;
    m_timer.stop();
    // Accounts rather than a property of the helper: only the mail application itself can answer it.
    auto question = QDBusMessage::createMethodCall(m_services.preferred(), u"/org/kest/Mail1"_s,
                                                   u"org.kest.Mail1.Application"_s, u"Accounts"_s);
    question.setAutoStartService(false);
    QElapsedTimer elapsed;
    elapsed.start();
    auto *watcher = new QDBusPendingCallWatcher(m_services.bus().asyncCall(question, static_cast<int>(m_limits.answer.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, elapsed] {
        tell(watcher->isError() ? std::optional(mailError(watcher->error(), elapsed, m_limits.answer)) : std::nullopt);
    });
}

void MailInquiry::tell(const std::optional<Error> &hindrance)
{
    if (const Told told = std::exchange(m_told, nullptr))
        told(hindrance);
    deleteLater();
}

} // namespace kest
