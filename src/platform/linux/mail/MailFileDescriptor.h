#pragma once

#include "platform/Error.h"
#include "platform/FileURL.h"

#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>
#include <QString>

#include <optional>

namespace kest {

/// A file's name and a descriptor open for reading: the structure "(sh)".
struct NamedDescriptor {
    QString name;
    QDBusUnixFileDescriptor descriptor;
};

QDBusArgument &operator<<(QDBusArgument &argument, const NamedDescriptor &file);
const QDBusArgument &operator>>(const QDBusArgument &argument, NamedDescriptor &file);

/// Makes the bus know NamedDescriptor. May be called more than once.
void registerNamedDescriptor();

/// The file, opened for reading from its start. Nothing when it cannot be
/// opened, is no regular file, or does not answer within five seconds; then
/// `error` says why, with the file's name. Main thread.
std::optional<QDBusUnixFileDescriptor> openedForHandOver(const FileURL &file, Error *error);

} // namespace kest

Q_DECLARE_METATYPE(kest::NamedDescriptor)
