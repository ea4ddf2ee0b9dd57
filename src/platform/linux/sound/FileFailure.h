#pragma once

#include <QString>

#include <cerrno>

namespace kest {

/// Why a file could not be written.
struct FileFailure {
    int errorNumber = 0; ///< An errno value, or 0 when the system did not say.
    QString detail;      ///< The system's or the codec's own words.

    bool isDiskFull() const { return errorNumber == ENOSPC || errorNumber == EDQUOT; }

    /// A failure of the system call just made.
    static FileFailure fromErrno(int errorNumber);
};

} // namespace kest
