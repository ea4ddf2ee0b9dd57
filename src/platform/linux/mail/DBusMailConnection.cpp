#include "platform/linux/mail/DBusMailConnection.h"

#include "platform/linux/mail/DefaultMailApplication.h"
#include "platform/linux/mail/MailErrors.h"
#include "platform/linux/mail/MailServices.h"
#include "platform/linux/mail/MailSignatures.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QElapsedTimer>

#include <chrono>

namespace kest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr uint protocolVersion = 1;
constexpr int accountName = 1; // identifier, name, sender
constexpr std::chrono::milliseconds answerLimit = 30s;
constexpr std::chrono::milliseconds installLimit = 30s;

// What thunderbird-addon answers while Thunderbird has the profile open.
constexpr int mustQuitCode = 4;

const QString applicationInterface = QStringLiteral("org.kest.Mail1.Application");

/// "Fake" of "org.kest.Mail1.Fake".
QString lastWord(const QString &service)
{
    return service.section(u'.', -1);
}

} // namespace

DBusMailConnection::DBusMailConnection(MailServices &services, ThunderbirdAddOn addOn, QObject *parent)
    : MailConnection(parent)
    , m_services(services)
    , m_addOn(std::move(addOn))
{
    connect(&m_services, &MailServices::changed, this, &DBusMailConnection::servicesChanged);
    m_installLimit.setSingleShot(true);
    connect(&m_installLimit, &QTimer::timeout, &m_installer, &QProcess::kill);
    connect(&m_installer, &QProcess::finished, this, &DBusMailConnection::installCommandEnded);
    connect(&m_installer, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            endInstall(m_installer.errorString());
    });
    if (!m_services.preferred().isEmpty())
        servicesChanged();
}

DBusMailConnection::~DBusMailConnection()
{
    // It changes a profile by replacing whole files: it may be ended at any moment.
    m_installer.disconnect(this);
}

void DBusMailConnection::look()
{
    m_isLookedAt = true;
    if (m_services.preferred().isEmpty())
        lookAtFiles(true);
}

void DBusMailConnection::servicesChanged()
{
    ++m_round;
    if (m_services.preferred().isEmpty()) {
        // One that goes is still there for a moment, so its files would call it a running one.
        m_isLookedAt ? lookAtFiles(false) : setState({});
        return;
    }
    ask(u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s, {applicationInterface}, &DBusMailConnection::takeProperties);
}

void DBusMailConnection::lookAtFiles(bool mayRun)
{
    using enum MailConnectionState::Kind;
    const auto application = defaultMailApplication();
    MailConnectionState state;
    state.application = application ? application->name : QString();
    if (!application)
        state.kind = NoApplication;
    else if (!application->serves(u"org.kest.Mail1.Thunderbird"_s))
        state.kind = Unsupported;
    else if (!m_addOn.isInstalled())
        state.kind = AddOnMissing;
    else
        state.kind = mayRun && m_addOn.isRunning() ? NotConnected : NotRunning;
    if (state.kind == AddOnMissing) {
        state.canInstall = !m_addOn.installCommand().isEmpty() && !m_addOn.profile().isEmpty();
        state.mustQuitFirst = m_addOn.isRunning();
    }
    setState(state);
}

void DBusMailConnection::ask(const QString &interface, const QString &method, const QVariantList &arguments,
                             void (DBusMailConnection::*answered)(const QDBusMessage &))
{
    auto question = QDBusMessage::createMethodCall(m_services.preferred(), u"/org/kest/Mail1"_s, interface, method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    auto *watcher = new QDBusPendingCallWatcher(m_services.bus().asyncCall(question, int(answerLimit.count())), this);
    QElapsedTimer elapsed;
    elapsed.start();
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, answered, elapsed, round = m_round] {
        watcher->deleteLater();
        if (round != m_round)
            return;
        watcher->isError() ? takeFailure(mailError(watcher->error(), elapsed, answerLimit))
                           : (this->*answered)(watcher->reply());
    });
}

void DBusMailConnection::takeProperties(const QDBusMessage &answer)
{
    const auto argument = answer.arguments().value(0).value<QDBusArgument>();
    const auto properties = argument.currentSignature() == u"a{sv}" ? qdbus_cast<QVariantMap>(argument) : QVariantMap();
    MailConnectionState state;
    state.kind = MailConnectionState::Kind::Connected;
    state.application = properties.value(u"Name"_s, lastWord(m_services.preferred())).toString();
    const QString version = properties.value(u"Version"_s).toString();
    const bool isOurs = properties.value(u"ProtocolVersion"_s).toUInt() == protocolVersion
        && (m_services.preferred() != u"org.kest.Mail1.Thunderbird" || version == QStringLiteral(KEST_VERSION));
    if (!isOurs) {
        state.kind = MailConnectionState::Kind::OtherVersion;
        state.version = version;
        return setState(state);
    }
    state.accounts = m_state.kind == state.kind ? m_state.accounts : QStringList();
    setState(state);
    ask(applicationInterface, u"Accounts"_s, {}, &DBusMailConnection::takeAccounts);
}

void DBusMailConnection::takeAccounts(const QDBusMessage &answer)
{
    const MailCall question{QString(), applicationInterface, u"Accounts"_s, MailCall::Kind::Method, {}};
    const auto values = plainValues(*mailSignature(question), answer);
    MailConnectionState state = m_state;
    state.accounts.clear();
    for (const QVariant &account : values ? values->first().toList() : QVariantList())
        state.accounts.append(account.toStringList().at(accountName));
    setState(state);
}

void DBusMailConnection::takeFailure(const Error &error)
{
    const auto code = static_cast<MailErrorCode>(error.code);
    if (code != MailErrorCode::NotConnected && code != MailErrorCode::Mismatch)
        return; // it is there; what else went wrong is said by the command that it concerns
    MailConnectionState state = m_state;
    state.application = m_state.application.isEmpty() ? lastWord(m_services.preferred()) : m_state.application;
    state.kind = code == MailErrorCode::Mismatch ? MailConnectionState::Kind::OtherVersion
                                                 : MailConnectionState::Kind::Silent;
    state.accounts.clear();
    setState(state);
}

void DBusMailConnection::setState(const MailConnectionState &state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT changed();
}

void DBusMailConnection::installAddOn()
{
    QStringList command = m_addOn.installCommand();
    if (m_installer.state() != QProcess::NotRunning)
        return;
    if (command.isEmpty())
        return endInstall(tr("The add-on could not be installed."));
    const QString program = command.takeFirst();
    m_installer.start(program, command, QIODevice::ReadOnly);
    m_installLimit.start(installLimit);
}

void DBusMailConnection::installCommandEnded()
{
    if (m_installer.exitStatus() == QProcess::NormalExit && m_installer.exitCode() == 0)
        return endInstall({});
    if (m_installer.exitCode() == mustQuitCode)
        return endInstall(tr("Quit %1 first, then install the add-on.").arg(m_state.application));
    // Its own words are for those who can use a terminal: still better than none.
    const QString words = QString::fromLocal8Bit(m_installer.readAllStandardError()).trimmed();
    const QString reason = words.section(u": "_s, 1);
    endInstall(reason.isEmpty() ? tr("The add-on could not be installed.") : reason);
}

void DBusMailConnection::endInstall(const QString &problem)
{
    m_installLimit.stop();
    if (m_services.preferred().isEmpty())
        lookAtFiles(true);
    Q_EMIT installEnded(problem);
}

} // namespace kest
