#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>

#include <array>

namespace kest {

/// The names of all settings. Spelled exactly so, misspellings included: they
/// are what stands in people's files. First letter: `b` boolean, `i` integer,
/// `t` text, `d` data.
namespace SettingsKeys {

/// Append the tagline to the body of new messages and replies.
inline const QString bIncludeTagline = QStringLiteral("bIncludeTagline");
/// After a reply is made, delete the message that was replied to.
inline const QString bDeleteOriginals = QStringLiteral("bDeleteOriginals");
/// Send a reply at once instead of leaving it open for editing.
inline const QString bSendReplies = QStringLiteral("bSendReplies");
/// Bookmark of the recordings folder.
inline const QString dAudioRecordingFolder = QStringLiteral("dAudioRecordingFolder");
/// Bookmark of the folder of prepared messages.
inline const QString dAttachmentsFolder = QStringLiteral("dAttachmentsFolder");
inline const QString tNewMessageSubject = QStringLiteral("tNewMessageSubject");
inline const QString tNewMessageBody = QStringLiteral("tNewMessageBody");
inline const QString tReplyBody = QStringLiteral("tReplyBody");
/// The main window is shown in its taller form.
inline const QString bWindowExpanded = QStringLiteral("bWindowExpanded");
/// Put the name of the person replied to into the recording's file name.
inline const QString bIncudeReplyToInName = QStringLiteral("bIncudeReplyToInName");
/// Old recordings go to the Trash rather than being deleted outright.
inline const QString bTrashNotDelete = QStringLiteral("bTrashNotDelete");
/// When old recordings are removed at quit: 0 never, 1 after a day, 2 after
/// seven days, 3 after 30 days, anything else at every quit.
inline const QString iWhenToDelete = QStringLiteral("iWhenToDelete");
/// Use the script-backed mail back end (`ASMail`) instead of `MailController`.
inline const QString useASClass = QStringLiteral("useASClass");
/// Title of the mail account to send from, or `noAccountChosen`.
inline const QString emailAccountToUse = QStringLiteral("emailAccountToUse");

} // namespace SettingsKeys

/// Stands in `emailAccountToUse` while no account was chosen, and in the list
/// of accounts when there is none.
inline const QString noAccountChosen = QStringLiteral("*none found*");

enum class SettingsType { Boolean, Integer, Text, Bookmark };

/// One setting: its name, how it is read, what it is until a person chooses.
struct SettingsEntry {
    QString key;
    SettingsType type;
    QVariant defaultValue; ///< Invalid for bookmarks: those are made at every start.
};

inline constexpr int settingsCount = 14;

/// All settings, each once.
const std::array<SettingsEntry, settingsCount> &settingsTable();

/// The pairs for `UserDefaults::registerDefaults`, in their order, with this
/// start's bookmarks of the two default folders. `bIncludeTagline` stands in
/// it twice, which does no harm.
QList<std::pair<QString, QVariant>> defaultsToRegister(const QByteArray &recordingsBookmark,
                                                       const QByteArray &attachmentsBookmark);

} // namespace kest
