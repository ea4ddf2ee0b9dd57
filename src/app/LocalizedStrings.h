#pragma once

#include <QString>

namespace kest {

/// The text for `key` in the person's language. Keys that are no readable text
/// themselves have an English wording here; any other key without a translation
/// is its own text.
QString localizedString(const QString &key);

/// Keys of the taglines: after a spoken message or an attached file, and after
/// the text of a prepared text message.
inline const QString taglineKey = QStringLiteral("Message_Body_App_Tag_Line");
inline const QString textTaglineKey = QStringLiteral("Message_Body_App_Tag_Line_text");

} // namespace kest
