#pragma once

#include <QHash>
#include <QString>

namespace kest {

/// A file of groups and keys in the syntax of the desktop entry specification,
/// without localized values.
class KeyFile
{
public:
    /// A file that is not there, or is larger than 1 MiB, has no keys.
    explicit KeyFile(const QString &path);

    /// The value with its escapes ("\s", "\n", "\t", "\r", "\\") replaced; empty
    /// when there is none.
    QString value(const QString &group, const QString &key) const { return m_values.value(group + u'\n' + key); }

private:
    QHash<QString, QString> m_values; // by group, line feed, key
};

} // namespace kest
