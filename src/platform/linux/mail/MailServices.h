#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>

#include <memory>

namespace kest {

/// Knows which services offer org.kest.Mail1 on the session bus, and passes on
/// what the preferred one announces.
///
/// Preferred is the desktop's default mail application where it serves, else
/// the first by name. Main thread.
class MailServices : public QObject
{
    Q_OBJECT

public:
    explicit MailServices(QObject *parent = nullptr);
    ~MailServices() override;

    /// Connects to the session bus, where that has not been done or the bus
    /// went away since. False when there is none. The names become known later:
    /// see `isReady`.
    bool connectToBus();

    const QDBusConnection &bus() const { return m_bus; }

    /// True when the names that are on the bus are known.
    bool isReady() const { return m_isReady; }

    /// The preferred service, or empty when there is none.
    const QString &preferred() const { return m_preferred; }

Q_SIGNALS:
    /// `isReady` or `preferred` changed, or the preferred one has a new owner.
    void changed();
    void appeared(const QString &name);
    void vanished();

    void focusGained();
    void focusLost();
    void handOverProgressed(qint64 done, qint64 total);

private Q_SLOTS:
    void passOnProgress(quint64 done, quint64 total);

private:
    void takeOwnName();
    void learnNames();
    void updateOwner(const QString &service, const QString &oldOwner, const QString &newOwner);
    void choosePreferred();
    void listen(const QString &service, bool on);

    QDBusConnection m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    QStringList m_names; // sorted
    QString m_preferred;
    bool m_isReady = false;
};

} // namespace kest
