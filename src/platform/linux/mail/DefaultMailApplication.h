#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace kest {

/// A mail application as the desktop knows it.
struct InstalledMailApplication {
    QString desktopId;   ///< For example "thunderbird.desktop".
    QString name;        ///< For people.
    QStringList command; ///< Program and arguments; never empty.

    /// True when the bus name's last word stands in the desktop id, in any case.
    bool serves(const QString &busName) const;
};

/// The desktop's handler of "mailto" addresses: the default one by the
/// freedesktop.org MIME applications specification, else any that claims the
/// scheme, else Thunderbird where it is in the search path. Reads a few small
/// files.
std::optional<InstalledMailApplication> defaultMailApplication();

/// The words of a desktop entry's Exec key, without its field codes, by the
/// rules of the desktop entry specification.
QStringList commandOfExecKey(const QString &exec);

/// Starts it as its own session, without descriptors, signal settings and
/// variables that are meant for this program alone. False when it cannot be
/// run.
bool startDetached(const InstalledMailApplication &application);

} // namespace kest
