#include "ui/MailWords.h"

#include "ui/Wording.h"

#include <QCoreApplication>

namespace kest {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("kest::MailWords", text);
}

QString nameOf(const MailConnectionState &state)
{
    return state.application.isEmpty() ? translated(QT_TRANSLATE_NOOP("kest::MailWords", "your mail application"))
                                       : state.application;
}

QString wordsForConnected(const MailConnectionState &state, const QString &account)
{
    // One that is not there any more is not sent from: the default one is.
    const QString sender = state.accounts.contains(account) ? account : state.accounts.value(0);
    if (sender.isEmpty())
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Connected to %1.")).arg(nameOf(state));
    return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Connected to %1 as %2.")).arg(isolated(nameOf(state)), isolated(sender));
}

QString wordsForMissing(const MailConnectionState &state)
{
    if (!state.canInstall)
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on is missing in %1. Help says how to get it."))
            .arg(nameOf(state));
    if (state.mustQuitFirst)
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on is missing. Quit %1 to install it."))
            .arg(nameOf(state));
    return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on is missing in %1.")).arg(nameOf(state));
}

QString wordsForOtherVersion(const MailConnectionState &state)
{
    if (state.version.isEmpty())
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on in %1 is of another version. Restart %1."))
            .arg(nameOf(state));
    return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on in %1 is version %2, this is %3. Restart %1."))
        .arg(nameOf(state), state.version, QStringLiteral(KEST_VERSION));
}

} // namespace

QString wordsFor(const MailConnectionState &state, const QString &account)
{
    using enum MailConnectionState::Kind;
    switch (state.kind) {
    case Unknown:
        break;
    case NoApplication:
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "No mail application was found. Kest needs Thunderbird."));
    case Unsupported:
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest cannot talk to %1 yet. It needs Thunderbird."))
            .arg(nameOf(state));
    case AddOnMissing:
        return wordsForMissing(state);
    case NotRunning:
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Not connected. Your first message starts %1."))
            .arg(nameOf(state));
    case NotConnected:
        return translated(QT_TRANSLATE_NOOP("kest::MailWords",
                                            "Not connected. Restart %1, and see that Kest’s add-on is switched on."))
            .arg(nameOf(state));
    case Silent:
        return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Kest’s add-on in %1 does not answer. Restart %1."))
            .arg(nameOf(state));
    case OtherVersion:
        return wordsForOtherVersion(state);
    case Connected:
        return wordsForConnected(state, account);
    }
    return translated(QT_TRANSLATE_NOOP("kest::MailWords", "Not connected."));
}

bool offersToInstall(const MailConnectionState &state)
{
    return state.kind == MailConnectionState::Kind::AddOnMissing && state.canInstall;
}

} // namespace kest
