#include "app/SettingsTable.h"

#include <algorithm>

namespace kest {

namespace {

using namespace SettingsKeys;

const QString defaultSubject = QStringLiteral("A voice email from (your name here)");
const QString defaultBody = QStringLiteral("Dear friend,\n\nI am trying to save on typing, so here is an audio recording "
                                           "of my \u201cemail\u201d\u2026");
const QString defaultReply = QStringLiteral("Dear friend,\n\nI am trying to save on typing, so here is an audio recording "
                                            "of my reply\u2026");

QVariant defaultOf(const QString &key)
{
    const auto &table = settingsTable();
    const auto entry = std::ranges::find(table, key, &SettingsEntry::key);
    return entry->defaultValue;
}

} // namespace

const std::array<SettingsEntry, settingsCount> &settingsTable()
{
    using enum SettingsType;
    static const std::array<SettingsEntry, settingsCount> table { {
        { bIncludeTagline, Boolean, true },
        { bDeleteOriginals, Boolean, false },
        { bSendReplies, Boolean, false },
        { dAudioRecordingFolder, Bookmark, {} },
        { dAttachmentsFolder, Bookmark, {} },
        { tNewMessageSubject, Text, defaultSubject },
        { tNewMessageBody, Text, defaultBody },
        { tReplyBody, Text, defaultReply },
        { bWindowExpanded, Boolean, false },
        { bIncudeReplyToInName, Boolean, false },
        { bTrashNotDelete, Boolean, true },
        { iWhenToDelete, Integer, 0 },
        { useASClass, Boolean, 1 }, // registered as a number, read as a boolean
        { emailAccountToUse, Text, noAccountChosen },
    } };
    return table;
}

QList<std::pair<QString, QVariant>> defaultsToRegister(const QByteArray &recordingsBookmark,
                                                       const QByteArray &attachmentsBookmark)
{
    const QStringList order { bIncludeTagline,      bDeleteOriginals, bSendReplies,    dAudioRecordingFolder,
                              dAttachmentsFolder,   tNewMessageSubject, tNewMessageBody, tReplyBody,
                              bIncludeTagline,      bWindowExpanded,  bIncudeReplyToInName, bTrashNotDelete,
                              iWhenToDelete,        useASClass,       emailAccountToUse };
    QList<std::pair<QString, QVariant>> pairs;
    for (const QString &key : order) {
        if (key == dAudioRecordingFolder)
            pairs.append({ key, recordingsBookmark });
        else if (key == dAttachmentsFolder)
            pairs.append({ key, attachmentsBookmark });
        else
            pairs.append({ key, defaultOf(key) });
    }
    return pairs;
}

} // namespace kest
