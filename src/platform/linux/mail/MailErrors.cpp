#include "platform/linux/mail/MailErrors.h"

#include "platform/linux/mail/MailSentences.h"

#include <QCoreApplication>

namespace kest {

namespace {

QString localized(const char *text)
{
    return QCoreApplication::translate("kest", text);
}

QString sentence(MailErrorCode code)
{
    switch (code) {
    case MailErrorCode::NoSuchObject:
        return localized(QT_TRANSLATE_NOOP("kest", "The message is no longer there."));
    case MailErrorCode::InvalidArgument:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application did not understand the request."));
    case MailErrorCode::NotConnected:
        return localized(QT_TRANSLATE_NOOP(
            "kest", "Kest's add-on in the mail application does not answer. Check that it is installed and "
                    "switched on, and try again."));
    case MailErrorCode::Mismatch:
        return localized(QT_TRANSLATE_NOOP(
            "kest", "Kest and its add-on in the mail application are of different versions. Install the add-on "
                    "that belongs to this version of Kest, and try again."));
    case MailErrorCode::TimedOut:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application did not answer in time."));
    case MailErrorCode::Unsupported:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application cannot do this."));
    case MailErrorCode::Failed:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application could not do this."));
    case MailErrorCode::Busy:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application is still busy with the last request."));
    case MailErrorCode::NoBus:
        return localized(QT_TRANSLATE_NOOP(
            "kest", "Kest cannot reach the mail application, because there is no session bus."));
    case MailErrorCode::NoApplication:
        return localized(QT_TRANSLATE_NOOP(
            "kest", "No mail application could be started. Install Thunderbird and Kest's add-on for it, and try "
                    "again."));
    case MailErrorCode::NoAddOn:
        return localized(QT_TRANSLATE_NOOP(
            "kest", "The mail application does not answer Kest. Install Kest's add-on in it, and try again."));
    case MailErrorCode::Vanished:
    case MailErrorCode::NotDelivered:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application went away before it was done."));
    case MailErrorCode::Malformed:
        return localized(QT_TRANSLATE_NOOP("kest", "The mail application's answer makes no sense to Kest."));
    case MailErrorCode::Ending:
        return localized(QT_TRANSLATE_NOOP("kest", "Kest is ending."));
    case MailErrorCode::NotRunning:
        return localized(QT_TRANSLATE_NOOP("kest", "No mail application is connected."));
    }
    return {};
}

MailErrorCode codeNamed(const QString &name)
{
    static const std::pair<const char *, MailErrorCode> names[] = {
        {"NoSuchObject", MailErrorCode::NoSuchObject}, {"InvalidArgument", MailErrorCode::InvalidArgument},
        {"NotConnected", MailErrorCode::NotConnected}, {"Mismatch", MailErrorCode::Mismatch},
        {"TimedOut", MailErrorCode::TimedOut},         {"Unsupported", MailErrorCode::Unsupported},
    };
    for (const auto &[each, code] : names) {
        if (name == mailErrorDomain + u'.' + QLatin1String(each))
            return code;
    }
    return MailErrorCode::Failed;
}

} // namespace

Error mailError(MailErrorCode code, const QString &reason)
{
    return {mailErrorDomain, static_cast<int>(code), sentence(code), reason};
}

Error mailError(const QDBusError &error, const QElapsedTimer &waited, std::chrono::milliseconds limit)
{
    switch (error.type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        // The bus library's timers may fire a twentieth early.
        return mailError(waited.hasExpired(limit.count() * 9 / 10) ? MailErrorCode::TimedOut : MailErrorCode::Vanished);
    case QDBusError::ServiceUnknown:
        return mailError(MailErrorCode::NotDelivered);
    case QDBusError::Disconnected:
        return mailError(MailErrorCode::Vanished);
    case QDBusError::UnknownObject:
        return mailError(MailErrorCode::NoSuchObject);
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownProperty:
        return mailError(MailErrorCode::Unsupported, error.message());
    default:
        break;
    }
    if (error.name() == u"org.freedesktop.DBus.Error.NameHasNoOwner")
        return mailError(MailErrorCode::NotDelivered);
    const MailErrorCode code = codeNamed(error.name());
    // The mail application's own words say more than ours.
    if (code == MailErrorCode::Failed && !error.message().isEmpty())
        return {mailErrorDomain, static_cast<int>(code), localizedMailSentence(error.message()), {}};
    return mailError(code, error.message());
}

Error withDoubt(Error error)
{
    const auto is = [&](MailErrorCode code) { return error.code == static_cast<int>(code); };
    if (error.domain == mailErrorDomain && (is(MailErrorCode::TimedOut) || is(MailErrorCode::Vanished)))
        error.failureReason = localized(QT_TRANSLATE_NOOP(
            "kest", "The message may be there or be sent all the same. Look in the mail application before you try again."));
    return error;
}

bool concernsAllCalls(const Error &error)
{
    if (error.domain != mailErrorDomain)
        return false;
    switch (static_cast<MailErrorCode>(error.code)) {
    case MailErrorCode::NotConnected:
    case MailErrorCode::Mismatch:
    case MailErrorCode::TimedOut:
    case MailErrorCode::NoBus:
    case MailErrorCode::NoApplication:
    case MailErrorCode::NoAddOn:
    case MailErrorCode::Vanished:
    case MailErrorCode::NotDelivered:
    case MailErrorCode::Malformed:
        return true;
    default:
        return false;
    }
}

} // namespace kest
