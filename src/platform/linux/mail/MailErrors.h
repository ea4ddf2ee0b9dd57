#pragma once

#include "platform/Error.h"

#include <QDBusError>
#include <QElapsedTimer>

#include <chrono>

namespace kest {

/// Domain of errors of the scripting interface.
inline const QString mailErrorDomain = QStringLiteral("org.kest.Mail1.Error");

enum class MailErrorCode {
    NoSuchObject = 1,
    InvalidArgument,
    NotConnected,
    Mismatch,
    TimedOut,
    Unsupported,
    Failed,
    Busy,           ///< Another call is under way.
    NoBus,          ///< No session bus.
    NoApplication,  ///< No mail application is installed, or it did not start.
    NoAddOn,        ///< One was started, but does not offer the interface.
    Vanished,       ///< It went away before it answered.
    NotDelivered,   ///< It was gone before the call reached it.
    Malformed,      ///< The answer is not what the interface says.
    Ending,         ///< This program is ending.
    NotRunning,     ///< None serves the interface now, and none was to be started.
};

/// An error with the sentence for its code. `reason` is the failure's own
/// words, and may be empty.
Error mailError(MailErrorCode code, const QString &reason = {});

/// What an error answer means. How long `waited` has run since the question
/// tells an answer's time limit that passed from an application that went away.
Error mailError(const QDBusError &error, const QElapsedTimer &waited, std::chrono::milliseconds limit);

/// The failure of a call that makes or sends a mail: where that may have been
/// done, or may be done yet, its reason says so.
Error withDoubt(Error error);

/// True when every other call would fail in the same way.
bool concernsAllCalls(const Error &error);

} // namespace kest
