#include "platform/linux/mail/KeyFile.h"

#include <QFile>
#include <QFileInfo>

namespace kest {

namespace {

constexpr qint64 largestFile = 1024 * 1024;

QChar unescaped(QChar letter)
{
    switch (letter.unicode()) {
    case 's':
        return u' ';
    case 'n':
        return u'\n';
    case 't':
        return u'\t';
    case 'r':
        return u'\r';
    default:
        return letter;
    }
}

QString unescapedValue(const QString &text)
{
    QString value;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == u'\\' && at + 1 < text.size() && QStringLiteral("sntr\\").contains(text[at + 1]);
        value += isEscape ? unescaped(text[at + 1]) : text[at];
        at += isEscape;
    }
    return value;
}

} // namespace

KeyFile::KeyFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return;
    QString group;
    for (const QString &raw : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QString line = raw.trimmed();
        const qsizetype equals = line.indexOf(u'=');
        if (line.startsWith(u'[') && line.endsWith(u']'))
            group = line.mid(1, line.size() - 2);
        else if (equals > 0 && !line.startsWith(u'#') && !m_values.contains(group + u'\n' + line.left(equals).trimmed()))
            m_values.insert(group + u'\n' + line.left(equals).trimmed(), unescapedValue(line.mid(equals + 1).trimmed()));
    }
}

} // namespace kest
