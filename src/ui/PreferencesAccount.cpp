// The account of PreferencesWindowController's sheet.

#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "ui/PreferencesWindowController.h"
#include "ui_PrefsSheet.h"

namespace kest {

void PreferencesWindowController::listAccounts()
{
    askForAccounts(MailTransport::Starting::WhereNone);
}

void PreferencesWindowController::askForAccounts(MailTransport::Starting starting)
{
    if (m_accountsListed || m_askingForAccounts)
        return;
    m_askingForAccounts = true;
    if (m_mailASObject)
        m_mailASObject->preload(); // while the mail application answers
    showAccountHint(starting == MailTransport::Starting::Never ? tr("Asking your mail application…")
                                                               : tr("Waiting for your mail application…"),
                    false);
    m_dependencies.mailTransport.inquire(starting, this, [this](const std::optional<Error> &hindrance) {
        m_askingForAccounts = false;
        if (hindrance)
            showAccountHint(hindrance->description, true);
        else
            retrieveAccounts();
    });
}

void PreferencesWindowController::retrieveAccounts()
{
    if (m_accountsListed)
        return;
    MailTransport &mail = m_dependencies.mailTransport;
    // A command of the main window is talking to the mail application: there is one call at a time.
    if (mail.isBusy()) {
        connect(&mail, &MailTransport::busyChanged, this, &PreferencesWindowController::retrieveAccounts,
                static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
        return;
    }
    fillAccounts(m_mailASObject ? m_mailASObject->retrieveEmailAccounts() : std::nullopt);
}

void PreferencesWindowController::fillAccounts(const std::optional<QStringList> &titles)
{
    const QString stored = m_dependencies.userDefaults.objectForKey(SettingsKeys::emailAccountToUse).toString();
    QComboBox *popup = m_ui->sendingAcctPopup;
    popup->clear();
    popup->addItems(titles.value_or(QStringList{noAccountChosen}));
    // -1, not the first item: what is shown as chosen must be what is stored.
    popup->setCurrentIndex(popup->findText(stored, Qt::MatchExactly | Qt::MatchCaseSensitive));
    popup->setPlaceholderText(titles || stored == noAccountChosen ? tr("Choose an account") : stored);
    m_accountsListed = titles.has_value();
    if (!titles || titles->isEmpty())
        showAccountHint(tr("Your mail application has no account that can send."), !titles);
    else if (popup->currentIndex() >= 0)
        showAccountHint({}, false);
    else if (stored == noAccountChosen)
        showAccountHint(tr("Until you choose, your mail application’s default account is used."), false);
    else
        showAccountHint(tr("“%1” is not there now, so the default account is used.").arg(stored), false);
}

void PreferencesWindowController::showAccountHint(const QString &hint, bool offersToList)
{
    m_ui->accountHint->setText(hint);
    m_ui->accountHint->setVisible(!hint.isEmpty());
    m_ui->listAccountsButton->setVisible(offersToList);
    m_ui->sendingAcctPopup->setAccessibleDescription(hint);
}

void PreferencesWindowController::doChoosDefaultAccount()
{
    m_dependencies.userDefaults.setObject(m_ui->sendingAcctPopup->currentText(), SettingsKeys::emailAccountToUse);
    if (m_accountsListed)
        showAccountHint({}, false);
}

} // namespace kest
