#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QString>

#include <optional>

namespace kest {

/// Body, attachment and place of the attachment of a message that is to be
/// made. Pure: knows no settings and no mail application.
///
/// Lengths and indexes count UTF-16 code units. A tagline is the localized text
/// when taglines are wanted, and nothing when not.
struct MessageDraft {
    /// What the message is made of: the recording, the text of a prepared text
    /// file, or a prepared file of any other kind.
    enum class Case { Recording, Text, File };

    Case messageCase = Case::Recording;
    QString body;
    std::optional<FileURL> attachment; ///< Never set in the text case.
    quint64 insertionIndex = 0;        ///< Where in the body the attachment goes.

    /// The recording behind `text`. Without a recording nothing is attached.
    static MessageDraft forRecording(const QString &text, const std::optional<QString> &tagline,
                                     const std::optional<FileURL> &recording);

    /// A prepared file: read and sent as text when its extension is "txt" in
    /// any case, attached otherwise. `file` is nothing when its folder is
    /// missing: that makes the file case without an attachment. A text file
    /// that cannot be read is replaced by a sentence that says so.
    static MessageDraft forChosenFile(const std::optional<FileURL> &file, const std::optional<QString> &fileTagline,
                                      const std::optional<QString> &textTagline);

    /// The text case for a file's text, without reading a file.
    static MessageDraft forText(const QString &text, const std::optional<QString> &tagline);
};

/// The body rule: the text, two line feeds, and the tagline if there is one.
QString messageBody(const QString &text, const std::optional<QString> &tagline);

/// The sentence that takes the place of a text file that could not be read. A
/// null description shows as "(null)".
QString unreadableFileSentence(const FileURL &file, const Error &error);

} // namespace kest
