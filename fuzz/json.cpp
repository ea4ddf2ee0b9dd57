// A message from the add-on: through the reader, the matching of answers to requests, and into the types of the bus.

#include "AddonLink.h"
#include "BusValues.h"
#include "Contract.h"
#include "FrameReader.h"
#include "NativeChannel.h"
#include "Target.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QFile>

#include <fcntl.h>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

using namespace kest;
using namespace kest::fuzz;
using namespace Qt::StringLiterals;

namespace {

const char *const signatures[] = {"s", "b", "u", "o", "as", "ao", "a(ss)", "a(sss)", "", "x", "a{sv}"};

/// A host's half of the connection whose other end nobody reads.
class Link
{
public:
    Link()
    {
        registerBusTypes();
        QObject::connect(&m_link, &AddonLink::focusChanged, [](bool) {});
    }

    void take(const QJsonObject &message)
    {
        while (m_waiting < 3)
            ask();
        Q_EMIT m_channel.received(message);
        QCoreApplication::sendPostedEvents();
        QMetaObject::invokeMethod(&m_channel, "writeReady");
        KEST_MUST(m_waiting >= 0 && m_waiting <= 3);
        (void)m_link.mismatch();
    }

private:
    void ask()
    {
        QList<QDBusUnixFileDescriptor> files;
        if (++m_asked % 2 == 0)
            files += m_file;
        ++m_waiting;
        m_link.request({{u"member"_s, u"Accounts"_s}}, files, 60'000, [this](const AddonAnswer &answer) {
            --m_waiting;
            for (const char *signature : signatures)
                (void)fromJson(answer.value, QString::fromLatin1(signature));
        });
    }

    NativeChannel m_channel {open("/dev/null", O_RDONLY | O_CLOEXEC), open("/dev/null", O_WRONLY | O_CLOEXEC)};
    AddonLink m_link {m_channel};
    QDBusUnixFileDescriptor m_file {memfd_create("file", MFD_CLOEXEC)};
    int m_asked = 0;
    int m_waiting = 0;
};

void tryAsValues(const QJsonObject &object)
{
    for (const QJsonValue value : object) {
        for (const char *signature : signatures) {
            const QVariant converted = fromJson(value, QString::fromLatin1(signature));
            if (converted.metaType() == QMetaType::fromType<QList<QDBusObjectPath>>()) {
                for (const QDBusObjectPath &path : converted.value<QList<QDBusObjectPath>>())
                    KEST_MUST(path.path().startsWith(u'/'));
            }
        }
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "json";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static Link link;
    QString problem;
    const auto object = jsonObjectOf(bytesOf(data, size), &problem);
    KEST_MUST(object || !problem.isEmpty());
    if (object) {
        tryAsValues(*object);
        link.take(*object);
    }
    return 0;
}
