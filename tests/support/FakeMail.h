#pragma once

#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>

namespace kest::test {

/// Runs the fake mail application on the test's session bus and talks to it.
/// Ends it when it goes.
class FakeMail
{
public:
    FakeMail() = default;
    ~FakeMail();

    /// Starts it as org.kest.Mail1.NAME and waits until it serves. Fatal when it
    /// does not come up.
    void start(const QString &name = QStringLiteral("Fake"));

    /// Ends it and waits until its name is gone.
    void stop();

    /// Stops or continues the process without ending it.
    void freeze();
    void thaw();

    bool isRunning() const { return m_process && m_process->state() == QProcess::Running; }
    QString busName() const { return QStringLiteral("org.kest.Mail1.") + m_name; }

    /// See FakeMailScript.
    void configure(const QJsonObject &description = {});
    void at(uint number, const QString &action, const QString &detail = {});
    QStringList log() const;
    QJsonObject state() const;
    void emitFocus(bool gained);

    /// The only outgoing message there is; an empty object when there is none
    /// or more than one.
    QJsonObject onlyOutgoing() const;

    static QString program();

private:
    QVariant ask(const QString &member, const QVariantList &arguments = {}) const;

    std::unique_ptr<QProcess> m_process;
    QString m_name;
};

/// True when the name has an owner on the session bus.
bool isOnBus(const QString &name);

} // namespace kest::test
