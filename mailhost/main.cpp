#include "AddonLink.h"
#include "Logging.h"
#include "MailService.h"
#include "NativeChannel.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace kest {

namespace {

using namespace Qt::StringLiterals;

constexpr int helloDeadline = 10 * 1000;

int end(const QString &reason, int code)
{
    qCInfo(hostLog).noquote() << reason;
    QCoreApplication::exit(code);
    return code;
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
    if (isatty(STDIN_FILENO)) {
        std::fputs("kest-mail-host is started by the mail application, not by people.\n", stderr);
        return 2;
    }
    QCoreApplication app(argc, argv);
    return kest::run();
}
