#include "platform/linux/desktop/SingleInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

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

bool activateRunning()
{
    QDBusMessage call = QDBusMessage::createMethodCall(busName, objectPath, interfaceName, QStringLiteral("Activate"));
    call << ownPlatformData();
    call.setAutoStartService(false); // that would start a third one
    const int limit = int(std::chrono::milliseconds(answerLimit).count());
    return QDBusConnection::sessionBus().call(call, QDBus::Block, limit).type() == QDBusMessage::ReplyMessage;
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
    if (m_isFirst && m_lock.isOpen())
        [[maybe_unused]] const int cleared = ::ftruncate(m_lock.get(), 0);
}

bool SingleInstance::isEnding() const
{
    struct stat file = {};
    return ::fstat(m_lock.get(), &file) == 0 && file.st_size > 0;
}

bool SingleInstance::handOver(std::chrono::milliseconds limit, std::chrono::milliseconds endLimit)
{
    QElapsedTimer waited;
    waited.start();
    bool ending = isEnding();
    while (!m_isFirst && QDBusConnection::sessionBus().isConnected()
           && !waited.hasExpired((ending ? endLimit : limit).count())) {
        if (activateRunning())
            return true;
        QThread::msleep(std::chrono::milliseconds(betweenTries).count());
        lock(); // it may just have ended
        if (std::exchange(ending, isEnding()) != ending)
            waited.restart(); // another one has been quicker
    }
    return false;
}

void SingleInstance::serve()
{
    if (m_withdrawn)
        return;
    if (!m_isFirst)
        lock();
    QDBusConnection bus = QDBusConnection::sessionBus();
    m_isExported = m_isExported || bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots);
    const bool isNamed = m_isExported && bus.registerService(busName);
    if (bus.isConnected() && !(m_isFirst && isNamed))
        QTimer::singleShot(betweenTakeOvers, this, &SingleInstance::serve);
}

void SingleInstance::withdraw()
{
    m_withdrawn = true;
    if (m_isFirst && m_lock.isOpen())
        [[maybe_unused]] const ssize_t marked = ::pwrite(m_lock.get(), "ending", 6, 0);
    // Not by Qt's own call, which waits for the bus's answer: a bus that hangs must not keep a recording from its end.
    QDBusMessage release = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                                          QStringLiteral("/org/freedesktop/DBus"),
                                                          QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReleaseName"));
    release << busName;
    QDBusConnection::sessionBus().send(release);
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
