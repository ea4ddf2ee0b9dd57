#include "ui/RecordingName.h"

namespace kest {

namespace {

/// Spaces of all kinds and tabs, but not line breaks.
bool isWhitespace(QChar unit)
{
    return unit.category() == QChar::Separator_Space || unit == u'\t';
}

QString trimmed(QStringView text)
{
    while (!text.isEmpty() && isWhitespace(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isWhitespace(text.back()))
        text.chop(1);
    return text.toString();
}

QString withoutExtension(const QString &fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > 0 && dot + 1 < fileName.size() ? fileName.left(dot) : fileName;
}

} // namespace

QString nameOfSender(const QString &sender)
{
    if (sender.isNull())
        return QStringLiteral("(null)");
    const qsizetype bracket = sender.indexOf(u'<');
    return bracket >= 2 ? trimmed(QStringView(sender).first(bracket - 1)) : sender;
}

QString recordingNameWithSender(const QString &fileName, const QString &sender)
{
    return withoutExtension(fileName) + u'_' + nameOfSender(sender) + QStringLiteral(".m4a");
}

} // namespace kest
