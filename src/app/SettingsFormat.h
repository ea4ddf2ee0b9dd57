#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

namespace kest {

/// Settings by key. Values are bool, qint64, QString or QByteArray.
using SettingsMap = QMap<QString, QVariant>;

/// The text that a settings file holds: UTF-8, one group, one "key=value" a
/// line.
///
///     [General]
///     bSendReplies=true
///     iWhenToDelete=3
///     tReplyBody="Dear friend,\n"
///     dAttachmentsFolder=@Bytes(S0JNMQ==)
///
/// Texts are in double quotes; `\n`, `\"`, `\\` and `\uXXXX` (a UTF-16 code
/// unit) stand for what a line cannot hold. Lines that begin with "#" or ";"
/// and empty lines are skipped.
QByteArray writeSettings(const SettingsMap &settings);

/// What the text says, or nothing when it is damaged: any line that is none of
/// the above, or no group line before the first key.
std::optional<SettingsMap> readSettings(const QByteArray &text);

} // namespace kest
