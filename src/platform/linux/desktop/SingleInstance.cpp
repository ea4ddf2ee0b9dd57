#include "platform/linux/desktop/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>

namespace kest {

namespace {

using namespace std::chrono_literals;

const QString busName = QStringLiteral("org.kest.Kest");
const QString objectPath = QStringLiteral("/org/kest/Kest");
const QString interfaceName = QStringLiteral("org.freedesktop.Application");
constexpr auto answerLimit = 1s;
constexpr auto betweenTries = 20ms;
constexpr auto betweenTakeOvers = 2s;

// The right to the focus, which the launcher gave to the process that it started.
const std::pair<const char *, QString> tokens[] {
    { "XDG_ACTIVATION_TOKEN", QStringLiteral("activation-token") },
    { "DESKTOP_STARTUP_ID", QStringLiteral("desktop-startup-id") },
};

QVariantMap ownPlatformData()
{
    QVariantMap data;
    for (const auto &[variable, key] : tokens) {
        if (qEnvironmentVariableIsSet(variable))
            data.insert(key, qEnvironmentVariable(variable));
    }
    return data;
}

enum class Answer { Came, Silence, NobodyThere };

Answer activateRunning()
{
    QDBusMessage call = QDBusMessage::createMethodCall(busName, objectPath, interfaceName, QStringLiteral("Activate"));
    call << ownPlatformData();
    call.setAutoStartService(false); // that would start a third one
    const int limit = int(std::chrono::milliseconds(answerLimit).count());
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, limit);
    if (answer.type() == QDBusMessage::ReplyMessage)
        return Answer::Came;
    const bool alive = QDBusError(answer).type() == QDBusError::NoReply;
    return alive ? Answer::Silence : Answer::NobodyThere;
}

} // namespace

SingleInstance::SingleInstance(QObject *parent) : QObject(parent)
{
    lock();
}

void SingleInstance::lock()
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    if (!m_lock.isOpen() && !folder.isEmpty())
        m_lock = FileDescriptor(::open((folder + "/kest.lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    m_isFirst = !m_lock.isOpen() || ::flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0;
}

bool SingleInstance::handOver(std::chrono::milliseconds limit, std::chrono::milliseconds endLimit)
{
    QElapsedTimer waited;
    waited.start();
    auto patience = endLimit;
    while (!m_isFirst && QDBusConnection::sessionBus().isConnected() && !waited.hasExpired(patience.count())) {
        const Answer answer = activateRunning();
        if (answer == Answer::Came)
            return true;
        patience = answer == Answer::Silence ? limit : endLimit;
        QThread::msleep(std::chrono::milliseconds(betweenTries).count());
        lock(); // it may just have ended
    }
    return false;
}

void SingleInstance::serve()
{
    if (m_withdrawn)
        return;
    const bool wasFirst = m_isFirst;
    if (!m_isFirst)
        lock();
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool isNamed = bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots)
        && bus.registerService(busName);
    if (!m_isFirst || (!isNamed && !wasFirst))
        QTimer::singleShot(betweenTakeOvers, this, &SingleInstance::serve);
}

void SingleInstance::withdraw()
{
    m_withdrawn = true;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.unregisterService(busName);
    bus.unregisterObject(objectPath);
}

void SingleInstance::Activate(const QVariantMap &platformData)
{
    if (m_withdrawn) { // it was on its way already
        sendErrorReply(QDBusError::ServiceUnknown, QStringLiteral("Kest is ending."));
        return;
    }
    // Qt takes the Wayland token from the environment when it asks for the focus.
    const auto &[variable, key] = tokens[0];
    if (platformData.contains(key))
        qputenv(variable, platformData.value(key).toString().toUtf8());
    Q_EMIT activated();
    qunsetenv(variable);
}

void SingleInstance::Open(const QStringList &, const QVariantMap &platformData)
{
    Activate(platformData); // there is nothing that Kest opens
}

void SingleInstance::ActivateAction(const QString &, const QVariantList &, const QVariantMap &)
{
    // Kest has no actions. One that began a recording or sent something would let any program on the bus do it.
}

} // namespace kest
