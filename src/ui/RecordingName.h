#pragma once

#include <QString>

namespace kest {

/// The name of a sender, from a text such as "Sales Desk <desk@example.org>".
///
/// What stands in front of the first "<", less the one UTF-16 code unit just in
/// front of it (normally a space; a letter where there is none, which is
/// deliberate), trimmed of spaces and tabs. The whole text, untrimmed, where
/// there is no "<" or it stands at position 0 or 1. "(null)" for a null text.
QString nameOfSender(const QString &sender);

/// The name for a recording that answers that sender: the file name without its
/// extension, "_", the sender's name, ".m4a". Not cleaned of what a file name
/// cannot hold, so the result may be no file name at all.
QString recordingNameWithSender(const QString &fileName, const QString &sender);

} // namespace kest
