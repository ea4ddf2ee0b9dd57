#pragma once

#include "app/SettingsFormat.h"
#include "platform/Error.h"

#include <functional>

namespace kest {

/// The settings file on disk.
///
/// Readers see the old contents or the new ones, never a part, whatever
/// happens to the writer: a change goes into a second file of the same folder,
/// which is synchronised and then takes the place of the first. Writers of
/// several processes take turns by a lock on the folder.
///
/// No state beside the path; any thread, one at a time.
class SettingsFile
{
public:
    explicit SettingsFile(QByteArray nativePath);

    enum class Outcome {
        Read,       ///< `settings` is what the file says.
        Missing,    ///< There is no file; no settings were ever stored.
        Damaged,    ///< The file is there and says nothing sensible.
        Unreadable, ///< The system does not let us read it; `error` says why.
    };

    struct Contents {
        Outcome outcome = Outcome::Missing;
        SettingsMap settings;
        Error error;
    };

    Contents read() const;

    /// Gives a damaged file another name beside its own, so that nothing is
    /// lost. Returns that name, or nothing when the folder does not allow it.
    std::optional<QByteArray> putAside() const;

    /// Reads the file, lets `change` change what it says, writes it back.
    /// Returns what stands in the file then, or nothing; then the file is as
    /// it was and `error` says why. A damaged or unreadable file is an error:
    /// it is never written over. Waits at most 250 ms for another writer.
    std::optional<SettingsMap> update(const std::function<void(SettingsMap &)> &change, Error *error) const;

    const QByteArray &nativePath() const { return m_path; }

private:
    bool write(const QByteArray &text, Error *error) const;

    QByteArray m_path;
};

} // namespace kest
