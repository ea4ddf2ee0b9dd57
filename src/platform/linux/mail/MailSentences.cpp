#include "platform/linux/mail/MailSentences.h"

#include <QCoreApplication>

namespace kest {

namespace {

/// %1 is a name or another program's words.
constexpr const char *sentences[] = {
    // The add-on's.
    QT_TRANSLATE_NOOP("kest", "“%1” did not arrive whole."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird did not attach “%1”."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird has no account that can send mail."),
    QT_TRANSLATE_NOOP("kest", "The message was closed before it was sent."),
    QT_TRANSLATE_NOOP("kest", "The message has no recipient."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird does not offer to send this message: it may be offline, or an address may be incomplete."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird could not send the message; it is still open there."),
    QT_TRANSLATE_NOOP("kest", "The reply was sent, but the original could not be deleted: %1"),
    QT_TRANSLATE_NOOP("kest", "The reply is there, but the original could not be deleted: %1"),
    QT_TRANSLATE_NOOP("kest", "This reply must be encrypted, and “Direct” cannot do that. Choose “Script” as the mail back end in Preferences."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird has no window to show."),
    QT_TRANSLATE_NOOP("kest", "The answer is too long to be passed on."),
    QT_TRANSLATE_NOOP("kest", "Thunderbird says: %1"),
    // The helper's.
    QT_TRANSLATE_NOOP("kest", "%1 is busy with other requests."),
    QT_TRANSLATE_NOOP("kest", "An attachment is not a regular file that can be read."),
    QT_TRANSLATE_NOOP("kest", "The attachments are larger than 2 GiB together, more than a mail can carry."),
    QT_TRANSLATE_NOOP("kest", "An attachment cannot be read: %1."),
    QT_TRANSLATE_NOOP("kest", "The add-on gave an answer that makes no sense."),
    QT_TRANSLATE_NOOP("kest", "Only Kest may do this, and the caller is not the Kest that runs."),
};

/// What stands in the place of %1; null where the sentence is another one.
QString filledIn(const QString &sentence, const QString &form)
{
    const auto place = form.indexOf(u"%1");
    if (place < 0)
        return sentence == form ? QStringLiteral("") : QString();
    const QString before = form.left(place);
    const QString behind = form.mid(place + 2);
    const auto length = sentence.size() - before.size() - behind.size();
    return length >= 0 && sentence.startsWith(before) && sentence.endsWith(behind) ? sentence.mid(place, length) : QString();
}

} // namespace

QString localizedMailSentence(const QString &english)
{
    for (const char *form : sentences) {
        const QString name = filledIn(english, QString::fromUtf8(form));
        if (!name.isNull())
            return QCoreApplication::translate("kest", form).replace(QStringLiteral("%1"), name);
    }
    return english;
}

} // namespace kest
