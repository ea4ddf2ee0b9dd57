#include "AddonLink.h"

#include "FileHandOver.h"
#include "Logging.h"
#include "NativeChannel.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace kest {

using namespace Qt::StringLiterals;

struct AddonLink::Pending {
    QJsonObject message; ///< Empty without files, and after it was sent.
    Answered answered;
    QTimer deadline;
    std::unique_ptr<FileHandOver> handOver; ///< Null without files, and after they have travelled.
    Asker asker = Asker::Kest;
};

AddonLink::AddonLink(NativeChannel &channel, QObject *parent)
    : QObject(parent)
    , m_channel(channel)
{
    connect(&channel, &NativeChannel::received, this, &AddonLink::received);
    connect(&channel, &NativeChannel::closed, this, &AddonLink::closed);
    const QJsonObject hello {{u"protocol"_s, protocol}, {u"version"_s, QStringLiteral(KEST_VERSION)}};
    m_channel.send({{u"hello"_s, hello}});
}

AddonLink::~AddonLink() = default;

QString AddonLink::mismatch() const
{
    if (m_hello.protocol == protocol && m_hello.version == QStringLiteral(KEST_VERSION))
        return {};
    return u"Kest's add-on in %1 is version %2, but its helper program is version %3. "
           "Install the same version of both, then restart %1."_s.arg(
               m_hello.applicationName, m_hello.version, QStringLiteral(KEST_VERSION));
}

bool AddonLink::hasRoomFor(Asker asker) const
{
    if (m_pending.size() >= mostPending || m_channel.pendingBytes() > mostUnsent)
        return false;
    const auto isOthers = [](const auto &pending) { return pending->asker == Asker::Anybody; };
    return asker == Asker::Kest || std::ranges::count_if(m_pending, isOthers) < mostOfOthers;
}

void AddonLink::request(QJsonObject message, const QList<QDBusUnixFileDescriptor> &files, int deadline,
                        Answered answered, Asker asker)
{
    if (!hasRoomFor(asker))
        return answered({{}, u"Failed"_s, u"%1 is busy with other requests."_s.arg(m_hello.applicationName)});
    const int serial = m_nextSerial++;
    message[u"call"_s] = serial;
    auto pending = std::make_shared<Pending>();
    pending->answered = std::move(answered);
    pending->asker = asker;
    pending->deadline.setSingleShot(true);
    connect(&pending->deadline, &QTimer::timeout, this, [this, serial] {
        answer(serial, {{}, u"TimedOut"_s, u"%1 did not answer in time."_s.arg(m_hello.applicationName)});
    });
    pending->deadline.start(deadline);
    m_pending.insert(serial, pending);
    if (files.isEmpty()) {
        m_channel.send(message);
        return;
    }
    pending->message = std::move(message);
    pending->handOver = std::make_unique<FileHandOver>(m_channel, files, m_nextFile);
    m_nextFile += static_cast<int>(files.size());
    m_handOvers.enqueue(serial);
    if (m_handOvers.size() == 1)
        startHandOver();
}

void AddonLink::startHandOver()
{
    const int serial = m_handOvers.head();
    const std::shared_ptr<Pending> pending = m_pending.value(serial);
    FileHandOver *handOver = pending->handOver.get();
    connect(handOver, &FileHandOver::progressed, this, [this, pending = pending.get()](qint64 done, qint64 total) {
        pending->deadline.start();
        Q_EMIT handOverProgressed(done, total);
    });
    // Queued: the hand-over must not be destroyed while it emits.
    connect(handOver, &FileHandOver::finished, this, [this, serial] { handOverEnded(serial, {}); },
            Qt::QueuedConnection);
    connect(
        handOver, &FileHandOver::failed, this, [this, serial](const QString &words) { handOverEnded(serial, words); },
        Qt::QueuedConnection);
    handOver->start();
}

void AddonLink::handOverEnded(int serial, const QString &problem)
{
    const std::shared_ptr<Pending> pending = m_pending.value(serial);
    if (!pending)
        return;
    pending->handOver.reset();
    m_handOvers.removeAll(serial);
    if (problem.isEmpty())
        m_channel.send(std::exchange(pending->message, {}));
    else
        answer(serial, {{}, u"InvalidArgument"_s, problem});
    if (!m_handOvers.isEmpty())
        startHandOver();
}

void AddonLink::received(const QJsonObject &message)
{
    if (message.contains("hello"_L1))
        greet(message["hello"_L1].toObject());
    else if (message.contains("answer"_L1))
        answered(message);
    else if (message.contains("focused"_L1))
        Q_EMIT focusChanged(message["focused"_L1].toBool());
    else if (message.contains("taken"_L1) && !m_handOvers.isEmpty())
        m_pending.value(m_handOvers.head())->handOver->taken(message["taken"_L1].toInt());
}

void AddonLink::greet(const QJsonObject &hello)
{
    if (m_greeted)
        return;
    m_greeted = true;
    m_hello = {hello["protocol"_L1].toInt(), hello["version"_L1].toString(), hello["name"_L1].toString(),
               hello["applicationVersion"_L1].toString()};
    Q_EMIT greeted();
}

void AddonLink::answered(const QJsonObject &message)
{
    const int serial = message["answer"_L1].toInt();
    if (!message.contains("error"_L1))
        return answer(serial, {message["result"_L1], {}, {}});
    const QJsonObject error = message["error"_L1].toObject();
    answer(serial, {{}, error["name"_L1].toString(u"Failed"_s), error["message"_L1].toString()});
}

void AddonLink::answer(int serial, const AddonAnswer &answer)
{
    const std::shared_ptr<Pending> pending = m_pending.take(serial);
    if (!pending) {
        // It came after its deadline; whoever asked has been told already.
        qCInfo(hostLog) << "an answer came too late";
        return;
    }
    const bool travelled = !m_handOvers.isEmpty() && m_handOvers.head() == serial;
    m_handOvers.removeAll(serial);
    pending->handOver.reset();
    pending->answered(answer);
    if (travelled && !m_handOvers.isEmpty())
        startHandOver();
}

void AddonLink::closed(const QString &reason)
{
    m_handOvers.clear();
    const QList<int> serials = m_pending.keys();
    for (const int serial : serials)
        answer(serial, {{}, u"NotConnected"_s, u"%1 was closed, or Kest's add-on in it was switched off."_s.arg(
                                                   m_hello.applicationName)});
    Q_EMIT ended(reason);
}

} // namespace kest
