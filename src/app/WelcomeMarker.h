#pragma once

#include <QString>

namespace kest {

/// Remembers, beside the person's other state, that they were welcomed.
///
/// An empty file under XDG_STATE_HOME (XDG Base Directory Specification). What
/// Kest keeps for somebody who used it before there was a welcome counts as
/// well: their settings, and the list of unfinished recordings.
class WelcomeMarker
{
public:
    /// `settingsFile` is where the settings lie, if there are any. Looks at the
    /// disk; to be made before anything is written there.
    explicit WelcomeMarker(const QString &settingsFile);

    /// Nothing told of an earlier start when this object was made.
    bool isFirstStart() const { return m_isFirstStart; }

    /// Writes the marker. One that cannot be written is logged, and the person is
    /// welcomed again at the next start.
    void write() const;

private:
    const bool m_isFirstStart;
};

} // namespace kest
