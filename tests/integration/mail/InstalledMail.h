#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kest::test {

/// Makes the throw-away home's desktop one with the mail applications that a
/// test installs, and no other.
class InstalledMail
{
public:
    /// Hides what the machine has installed.
    InstalledMail();
    ~InstalledMail();

    /// A mail application with this desktop id, whose Exec key is `exec`.
    void install(const QString &desktopId, const QString &exec, const QString &name = QStringLiteral("Test Mail"));

    /// Makes it the default handler of mailto addresses.
    void makeDefault(const QString &desktopId);

    /// An executable script with these lines; its path.
    QString script(const QString &name, const QByteArray &lines);

    /// Takes everything away again.
    void clear();

private:
    void write(const QString &path, const QByteArray &bytes, bool executable = false);

    QByteArray m_path;
    QByteArray m_dataDirs;
    QStringList m_files;
};

/// Ends the process that owns this name on the session bus, by its id, and
/// waits until the name is gone.
void endOwner(const QString &busName);

} // namespace kest::test
