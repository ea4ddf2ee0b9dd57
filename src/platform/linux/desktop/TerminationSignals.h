#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace kest {

/// Turns the wishes of others that this process end (SIGTERM, SIGINT, SIGHUP)
/// into a Qt signal. A second SIGINT ends the process at once.
/// What was ignored when it was made stays ignored.
///
/// One object a process, until the process ends by itself: after it, such
/// wishes are ignored. Main thread.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void received(int signalNumber);

private:
    void read();

    std::unique_ptr<QSocketNotifier> m_notifier; // null when the system gave no pipe
};

} // namespace kest
