#pragma once

#include <QString>

namespace kest {

/// A failure's sentence as Kest's add-on or helper sends it, in the person's language. They know no languages and always send
/// English; a sentence that is none of theirs, such as another mail application's own, comes back as it is. A test holds that
/// this knows every one of theirs.
QString localizedMailSentence(const QString &english);

} // namespace kest
