#include "app/LocalizedStrings.h"

#include <QCoreApplication>
#include <QHash>

namespace kest {

QString localizedString(const QString &key)
{
    static const QHash<QString, const char *> wordings {
        { taglineKey, QT_TRANSLATE_NOOP("kest", "Spoken, not typed. Recorded with Kest.") },
        { textTaglineKey, QT_TRANSLATE_NOOP("kest", "Sent in one click with Kest.") },
    };
    const QByteArray source = wordings.contains(key) ? QByteArray(wordings.value(key)) : key.toUtf8();
    return QCoreApplication::translate("kest", source.constData());
}

} // namespace kest
