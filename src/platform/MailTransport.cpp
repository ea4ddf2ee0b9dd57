#include "platform/MailTransport.h"

namespace kest {

namespace {

constexpr qsizetype mostBytes = 255; // NAME_MAX of Linux; the mail application's half refuses longer ones
constexpr qsizetype longestExtension = 16; // its dot included

QString shortened(QString stem, const QString &extension)
{
    while ((stem + extension).toUtf8().size() > mostBytes)
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + extension;
}

} // namespace

QString MailFile::name() const
{
    const QString whole = QString::fromUtf8(file.nativeLastPathComponent());
    const qsizetype dot = whole.lastIndexOf(u'.');
    const bool hasExtension = dot > 0 && whole.size() - dot <= longestExtension;
    return shortened(hasExtension ? whole.left(dot) : whole, hasExtension ? whole.mid(dot) : QString());
}

} // namespace kest
