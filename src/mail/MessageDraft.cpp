#include "mail/MessageDraft.h"

#include "mail/PlainText.h"

namespace kest {

using namespace Qt::StringLiterals;

QString messageBody(const QString &text, const std::optional<QString> &tagline)
{
    return text + u"\n\n"_s + tagline.value_or(QString());
}

QString unreadableFileSentence(const FileURL &file, const Error &error)
{
    const QString description = error.description.isNull() ? u"(null)"_s : error.description;
    // One call with both arguments, so that a "%1" in the path stays a part of the path.
    return u"The file '%1' could not be read (%2)."_s.arg(file.displayPath(), description);
}

MessageDraft MessageDraft::forRecording(const QString &text, const std::optional<QString> &tagline,
                                        const std::optional<FileURL> &recording)
{
    // Behind the two line feeds: in front of the tagline.
    return {Case::Recording, messageBody(text, tagline), recording, static_cast<quint64>(text.size()) + 2};
}

MessageDraft MessageDraft::forText(const QString &text, const std::optional<QString> &tagline)
{
    // Between the two line feeds; nothing is inserted there.
    return {Case::Text, messageBody(text, tagline), std::nullopt, static_cast<quint64>(text.size()) + 1};
}

MessageDraft MessageDraft::forChosenFile(const std::optional<FileURL> &file, const std::optional<QString> &fileTagline,
                                         const std::optional<QString> &textTagline)
{
    if (file && file->pathExtension().toLower() == u"txt") {
        Error error;
        const std::optional<QString> text = plainTextOfFile(*file, &error);
        return forText(text ? *text : unreadableFileSentence(*file, error), textTagline);
    }
    // Two line feeds are the text here; without a tagline no more are added.
    const QString lineFeeds = u"\n\n"_s;
    return {Case::File, fileTagline ? messageBody(lineFeeds, fileTagline) : lineFeeds, file, 1};
}

} // namespace kest
