#pragma once

#include <QString>

namespace kest {

/// What went wrong in an operation that hands back an empty result.
///
/// Operations that can fail take `Error *error`, an optional slot: null means
/// that the caller does not want to know, and then nothing is handed back. The
/// slot is only written on failure.
struct Error {
    QString domain;        ///< Who defines the code, for example "KestErrorDomain".
    int code = 0;          ///< Meaningful only within the domain.
    QString description;   ///< A sentence for the person.
    QString failureReason; ///< A short phrase; may be empty.

    friend bool operator==(const Error &, const Error &) = default;
};

/// Domain of errors that carry an errno value as their code.
inline const QString posixErrorDomain = QStringLiteral("POSIXErrorDomain");

/// Domain of Kest's own errors.
inline const QString kestErrorDomain = QStringLiteral("KestErrorDomain");

/// Puts `value` into `slot` when the caller gave one.
inline void handBack(Error *slot, Error value)
{
    if (slot)
        *slot = std::move(value);
}

/// An error made from an errno value, with the system's own words for it.
Error posixError(int errorNumber, const QString &doing);

/// The error as it stands in logs: domain, code, description.
QString logText(const Error &error);

} // namespace kest
