#pragma once

#include <QString>

/// Names of the mail application's scripting interface, as
/// resources/org.kest.Mail1.xml has them.
namespace kest::vocabulary {

inline const QString applicationPath = QStringLiteral("/org/kest/Mail1");
inline const QString applicationInterface = QStringLiteral("org.kest.Mail1.Application");
inline const QString messageInterface = QStringLiteral("org.kest.Mail1.Message");
inline const QString outgoingMessageInterface = QStringLiteral("org.kest.Mail1.OutgoingMessage");

} // namespace kest::vocabulary
