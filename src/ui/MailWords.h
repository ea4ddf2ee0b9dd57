#pragma once

#include "platform/MailConnection.h"

#include <QString>

namespace kest {

/// How things stand with the mail application, in a sentence or two. `account`
/// is the one chosen to send from; empty when none was.
QString wordsFor(const MailConnectionState &state, const QString &account);

/// The add-on is missing or wrong, and can be put in by a press of a button.
bool offersToInstall(const MailConnectionState &state);

} // namespace kest
