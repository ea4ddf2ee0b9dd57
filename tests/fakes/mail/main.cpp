// fake-mail-application [NAME]: serves org.kest.Mail1.NAME ("Fake" by default) on the session bus until it is ended.
// KEST_FAKE_MAIL_CONFIGURATION may hold the mailbox to begin with. KEST_FAKE_MAIL_JOURNAL may name a file: what was done is
// written there, a line each.

#include "fakes/mail/FakeMailScript.h"
#include "platform/linux/mail/MailFileDescriptor.h"
#include "support/MailBusTypes.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDebug>

int main(int argc, char *argv[])
{
    using namespace kest::test;
    QCoreApplication application(argc, argv);
    kest::registerNamedDescriptor();
    registerMailBusTypes();

    QDBusConnection bus = QDBusConnection::sessionBus();
    FakeMailApplication fake(bus);
    FakeMailScript script(fake);
    script.Configure(qEnvironmentVariable("KEST_FAKE_MAIL_CONFIGURATION", QStringLiteral("{}")));
    const QString name = QStringLiteral("org.kest.Mail1.") + application.arguments().value(1, QStringLiteral("Fake"));
    if (!bus.registerVirtualObject(QStringLiteral("/org/kest/Mail1"), &fake, QDBusConnection::SubPath)
        || !bus.registerObject(QStringLiteral("/org/kest/Test"), &script, QDBusConnection::ExportAllSlots)
        || !bus.registerService(name)) {
        qCritical() << "cannot serve" << name << bus.lastError().message();
        return 1;
    }
    return application.exec();
}
