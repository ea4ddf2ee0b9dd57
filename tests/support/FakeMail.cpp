#include "support/FakeMail.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QTest>

#include <csignal>

namespace kest::test {

using namespace Qt::StringLiterals;

bool isOnBus(const QString &name)
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
}

QString FakeMail::program()
{
    return qEnvironmentVariable("KEST_BUILD_DIR") + u"/bin/fake-mail-application"_s;
}

FakeMail::~FakeMail()
{
    stop();
}

void FakeMail::start(const QString &name)
{
    stop();
    m_name = name;
    m_process = std::make_unique<QProcess>();
    m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    m_process->start(program(), {name});
    if (!m_process->waitForStarted() || !QTest::qWaitFor([&] { return isOnBus(busName()); }, 10'000))
        qFatal("the fake mail application did not come up");
}

void FakeMail::stop()
{
    if (!m_process)
        return;
    thaw();
    m_process->kill();
    m_process->waitForFinished();
    m_process.reset();
    if (!QTest::qWaitFor([&] { return !isOnBus(busName()); }, 5'000))
        qFatal("the fake mail application's name stays");
}

void FakeMail::freeze()
{
    ::kill(static_cast<pid_t>(m_process->processId()), SIGSTOP);
}

void FakeMail::thaw()
{
    if (isRunning())
        ::kill(static_cast<pid_t>(m_process->processId()), SIGCONT);
}

void FakeMail::configure(const QJsonObject &description)
{
    ask(u"Configure"_s, {QString::fromUtf8(QJsonDocument(description).toJson())});
}

void FakeMail::at(uint number, const QString &action, const QString &detail)
{
    ask(u"At"_s, {number, action, detail});
}

QStringList FakeMail::log() const
{
    QStringList calls;
    for (const QJsonValue &call : QJsonDocument::fromJson(ask(u"Log"_s).toString().toUtf8()).array())
        calls.append(call.toString());
    return calls;
}

QJsonObject FakeMail::state() const
{
    return QJsonDocument::fromJson(ask(u"State"_s).toString().toUtf8()).object();
}

QJsonObject FakeMail::onlyOutgoing() const
{
    const QJsonObject messages = state()[u"outgoing"].toObject();
    return messages.size() == 1 ? messages.begin()->toObject() : QJsonObject();
}

void FakeMail::emitFocus(bool gained)
{
    ask(u"EmitFocus"_s, {gained});
}

QVariant FakeMail::ask(const QString &member, const QVariantList &arguments) const
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(busName(), u"/org/kest/Test"_s, u"org.kest.Test.Script"_s, member);
    question.setArguments(arguments);
    const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, 10'000);
    if (answer.type() != QDBusMessage::ReplyMessage)
        qFatal("the fake mail application did not understand %s", qPrintable(member));
    return answer.arguments().value(0);
}

} // namespace kest::test
