#pragma once

#include "BusValues.h"

#include <QHash>
#include <QJsonObject>
#include <QObject>
#include <QQueue>

#include <functional>
#include <memory>

class QTimer;

namespace kest {

class FileHandOver;
class NativeChannel;

/// What the add-on said of itself when it connected.
struct AddonHello {
    int protocol = 0;
    QString version;
    QString applicationName;
    QString applicationVersion;
};

/// The answer to one request: a value, or an error by the last word of its name
/// in org.kest.Mail1.Error with words for people.
struct AddonAnswer {
    QJsonValue value;
    QString errorName; ///< Empty when the request succeeded.
    QString errorWords;
};

/// Requests to the add-on and their answers, matched by serial number, each
/// with a deadline; files travel before the request that needs them.
///
/// One thread. Every request is answered exactly once: by the add-on, at its
/// deadline, or when the connection ends.
class AddonLink : public QObject
{
    Q_OBJECT

public:
    using Answered = std::function<void(const AddonAnswer &)>;

    /// The version of the messages between the halves.
    static constexpr int protocol = 1;
    /// Milliseconds without an answer, or without a piece of a file being taken.
    static constexpr int ordinaryDeadline = 45 * 1000;
    /// Sending may wait for a person who is asked something.
    static constexpr int sendDeadline = 115 * 1000;

    /// Who asks: Kest, or anybody else on the bus.
    enum class Asker { Kest, Anybody };

    /// Requests without an answer yet; one more fails at once.
    static constexpr int mostPending = 32;
    /// Of them, those of anybody but Kest: however much others ask, Kest has room.
    static constexpr int mostOfOthers = 16;
    /// Bytes not yet taken by the add-on, beyond which a request fails at once.
    static constexpr qsizetype mostUnsent = 8 * 1024 * 1024;

    explicit AddonLink(NativeChannel &channel, QObject *parent = nullptr);
    ~AddonLink() override;

    /// Sends one request. `files` are those whose places in it start at fileBase().
    void request(QJsonObject message, const QList<QDBusUnixFileDescriptor> &files, int deadline, Answered answered,
                 Asker asker = Asker::Kest);

    /// The number of the first file of the next request.
    int fileBase() const { return m_nextFile; }

    const AddonHello &hello() const { return m_hello; }

    /// Empty when both halves belong together; else words that say how they do not.
    QString mismatch() const;

Q_SIGNALS:
    /// Once: the add-on said who it is.
    void greeted();
    void focusChanged(bool focused);
    void handOverProgressed(qint64 done, qint64 total);
    /// The connection has ended; every request has been answered.
    void ended(const QString &reason);

private Q_SLOTS:
    void received(const QJsonObject &message);
    void closed(const QString &reason);

private:
    struct Pending;

    bool hasRoomFor(Asker asker) const;
    void greet(const QJsonObject &hello);
    void answer(int serial, const AddonAnswer &answer);
    void answered(const QJsonObject &message);
    void startHandOver();
    void handOverEnded(int serial, const QString &problem);

    NativeChannel &m_channel;
    AddonHello m_hello;
    QHash<int, std::shared_ptr<Pending>> m_pending;
    QQueue<int> m_handOvers; ///< Serials whose files wait or travel; the first one travels.
    int m_nextSerial = 1;
    int m_nextFile = 1;
    bool m_greeted = false;
};

} // namespace kest
