#include "AddonLink.h"
#include "Logging.h"
#include "MailService.h"
#include "NativeChannel.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QTimer>

#include <cstdio>
#include <dlfcn.h>
#include <unistd.h>
#include <utility>

namespace kest {

namespace {

using namespace Qt::StringLiterals;

constexpr int helloDeadline = 10 * 1000;
// A text of 4 MiB in ISO 8859-1 is up to twice as long in UTF-8.
constexpr long largestBusMessage = 9 * 1024 * 1024;
constexpr long mostBusFiles = 200; // more than a request may have, so that one that has too many is told so

// Browsers' native messaging: the host is given the path of its manifest, and the add-on that starts it.
constexpr int argumentCount = 3;
constexpr char ownAddon[] = "kest@kest.invalid";

int end(const QString &reason, int code)
{
    qCInfo(hostLog).noquote() << reason;
    QCoreApplication::exit(code);
    return code;
}

/// Makes the bus library refuse, by ending the connection, messages larger than any of the contract's: what has been
/// read is in memory before anybody can look at it. It also takes more than 16 files at once, where it would end the
/// connection too. Qt has no function for these, but links the library that has.
void boundMessages(const QDBusConnection &bus)
{
    using SetLimit = void (*)(void *connection, long limit);
    const std::pair<const char *, long> limits[] {
        {"dbus_connection_set_max_message_size", largestBusMessage},
        {"dbus_connection_set_max_received_size", largestBusMessage},
        {"dbus_connection_set_max_message_unix_fds", mostBusFiles},
    };
    for (const auto &[name, limit] : limits) {
        if (const auto setLimit = reinterpret_cast<SetLimit>(dlsym(RTLD_DEFAULT, name)))
            setLimit(bus.internalPointer(), limit);
    }
}

/// Takes the bus name, behind another Thunderbird of the same person if there is one.
void offer(QDBusConnection &bus)
{
    bus.interface()->registerService(u"org.kest.Mail1.Thunderbird"_s, QDBusConnectionInterface::QueueService,
                                     QDBusConnectionInterface::DontAllowReplacement);
}

int run()
{
    const std::unique_ptr<NativeChannel> channel = NativeChannel::overStandardStreams();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return end(u"There is no session bus: "_s + bus.lastError().message(), 1);
    boundMessages(bus);
    AddonLink addon(*channel);
    MailService service(Contract::builtIn(), addon, bus);
    bus.registerVirtualObject(rootPath, &service, QDBusConnection::SubPath);

    // Without the bus there is nobody to serve; the add-on starts a new host.
    bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, qApp,
                SLOT(quit()));

    QTimer silence;
    silence.setSingleShot(true);
    QObject::connect(&silence, &QTimer::timeout, qApp, [] { end(u"The add-on never said hello."_s, 1); });
    silence.start(helloDeadline);
    QObject::connect(&addon, &AddonLink::greeted, qApp, [&silence, &bus] {
        silence.stop();
        offer(bus);
    });
    QObject::connect(&addon, &AddonLink::ended, qApp, [&bus](const QString &reason) {
        // A call to the bus, so what was said before it is out when it returns.
        bus.interface()->unregisterService(u"org.kest.Mail1.Thunderbird"_s);
        end(reason, 0);
    });
    return QCoreApplication::exec();
}

} // namespace

} // namespace kest

int main(int argc, char *argv[])
{
    if (argc == 2 && qstrcmp(argv[1], "--version") == 0)
        return std::puts("kest-mail-host " KEST_VERSION) < 0;
    if (argc != kest::argumentCount || qstrcmp(argv[2], kest::ownAddon) != 0 || isatty(STDIN_FILENO)) {
        std::fputs("kest-mail-host is started by the mail application for Kest's add-on, not by people.\n", stderr);
        return 2;
    }
    QCoreApplication app(argc, argv);
    return kest::run();
}
