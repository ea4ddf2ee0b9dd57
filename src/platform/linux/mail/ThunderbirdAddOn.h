#pragma once

#include <QString>
#include <QStringList>

namespace kest {

/// Where Kest's add-on for Thunderbird is, and how it gets there: looks at files
/// only.
class ThunderbirdAddOn
{
public:
    struct Places {
        /// Where a package puts it for everybody (the folders that Thunderbird
        /// itself looks into).
        QStringList systemFolders;

        /// Which hold the person's profiles, the usual one first.
        QStringList profileRoots;

        /// What puts it into the person's own profile (thunderbird-addon), with
        /// its arguments; empty where this installation brings none.
        QStringList installCommand;

        static Places ofThisComputer();
    };

    explicit ThunderbirdAddOn(Places places = Places::ofThisComputer());

    /// For everybody, or in the profile that Thunderbird would open.
    bool isInstalled() const;

    /// A Thunderbird has that profile open.
    bool isRunning() const;

    const QStringList &installCommand() const { return m_places.installCommand; }

    /// The profile's folder; empty when there is none yet.
    QString profile() const;

private:
    Places m_places;
};

} // namespace kest
