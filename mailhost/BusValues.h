#pragma once

#include <QDBusUnixFileDescriptor>
#include <QJsonArray>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QVariant>

namespace kest {

/// The values of the contract on their way between the bus and JSON.
///
/// A descriptor becomes {"file": N}, N counting from `firstFile`, and is put
/// aside in `files`; structs become arrays.
QJsonArray toJson(const QVariantList &arguments, QList<QDBusUnixFileDescriptor> &files, int firstFile);

/// The value of one type of the contract; an invalid variant when the JSON does
/// not fit or the type is none of the contract's.
QVariant fromJson(const QJsonValue &value, const QString &signature);

/// Once per process, before the first fromJson().
void registerBusTypes();

} // namespace kest
