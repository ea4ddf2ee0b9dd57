#include "mail/ASMailHost.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace kest {

Q_DECLARE_LOGGING_CATEGORY(mailScript)

ASMailHost::ASMailHost(AlertPresenter &alertPresenter, QObject *parent)
    : QObject(parent)
    , m_alertPresenter(alertPresenter)
{
}

void ASMailHost::displayAlert(const QString &messageText, const QString &informativeText)
{
    const QString reason = informativeText == messageText ? QString() : informativeText;
    m_alertPresenter.runModal({messageText, reason, {QCoreApplication::translate("kest", "OK")},
                               AlertContent::Style::Warning});
}

void ASMailHost::log(const QString &line)
{
    qCInfo(mailScript).noquote() << line;
}

} // namespace kest
