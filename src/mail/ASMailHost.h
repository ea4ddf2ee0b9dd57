#pragma once

#include "platform/AlertPresenter.h"

#include <QObject>

namespace kest {

/// What the mail script may use besides the mail application. Outlives the
/// script's engine; main thread.
class ASMailHost : public QObject
{
    Q_OBJECT

public:
    ASMailHost(AlertPresenter &alertPresenter, QObject *parent);

    /// Shows an alert with an "OK" button and returns when it was dismissed.
    Q_INVOKABLE void displayAlert(const QString &messageText, const QString &informativeText = {});

    /// A line for the system log.
    Q_INVOKABLE void log(const QString &line);

private:
    AlertPresenter &m_alertPresenter;
};

} // namespace kest
