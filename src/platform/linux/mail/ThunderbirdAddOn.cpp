#include "platform/linux/mail/ThunderbirdAddOn.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

#include <csignal>
#include <unistd.h>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

const QString addOnFile = QStringLiteral("/kest@kest.invalid.xpi");

/// A path of one of Thunderbird's .ini files; QSettings takes a comma for the seam of a list.
QString pathIn(const QSettings &ini, const QString &key)
{
    return ini.value(key).toStringList().join(u',');
}

/// What that file of `root` calls the default profile; empty when it names none.
QString defaultIn(const QString &root, const QString &file, const QString &groupPrefix)
{
    QSettings ini(root + u'/' + file, QSettings::IniFormat);
    for (const QString &group : ini.childGroups()) {
        const QString path = pathIn(ini, group + u"/Default"_s);
        if (group.startsWith(groupPrefix) && !path.isEmpty())
            return path;
    }
    return {};
}

/// The profile that is marked as the default one, else the only one.
QString markedIn(const QString &root)
{
    QSettings ini(root + u"/profiles.ini"_s, QSettings::IniFormat);
    QStringList paths;
    for (const QString &group : ini.childGroups()) {
        const QString path = group.startsWith(u"Profile"_s) ? pathIn(ini, group + u"/Path"_s) : QString();
        if (!path.isEmpty() && ini.value(group + u"/Default"_s).toString() == u"1")
            return path;
        if (!path.isEmpty())
            paths.append(path);
    }
    return paths.size() == 1 ? paths.first() : QString();
}

QString profileIn(const QString &root)
{
    QString path = defaultIn(root, u"installs.ini"_s, {});
    if (path.isEmpty())
        path = defaultIn(root, u"profiles.ini"_s, u"Install"_s);
    if (path.isEmpty())
        path = markedIn(root);
    const QString folder = path.isEmpty() ? QString() : QDir(root).absoluteFilePath(path);
    return QFileInfo(folder).isDir() ? folder : QString();
}

/// Beside an installed program, or in the build folder that it lies in.
QStringList commandHere()
{
    const QString program = QCoreApplication::applicationDirPath();
    const QString installed = program + u"/../share/kest/thunderbird/thunderbird-addon"_s;
    if (QFileInfo(installed).isExecutable())
        return {installed, u"install"_s};
    const QString built = program + u"/../thunderbird-addon"_s;
    if (QFileInfo(built).isExecutable())
        return {built, u"install"_s, u"--build"_s, QDir::cleanPath(program + u"/.."_s)};
    return {};
}

} // namespace

ThunderbirdAddOn::Places ThunderbirdAddOn::Places::ofThisComputer()
{
    const QString home = QDir::homePath();
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return {{u"/usr/lib/thunderbird/extensions"_s, u"/usr/lib64/thunderbird/extensions"_s},
            {home + u"/.thunderbird"_s, config + u"/thunderbird"_s, config + u"/.thunderbird"_s,
             home + u"/snap/thunderbird/common/.thunderbird"_s,
             home + u"/.var/app/org.mozilla.Thunderbird/.thunderbird"_s},
            commandHere()};
}

ThunderbirdAddOn::ThunderbirdAddOn(Places places)
    : m_places(std::move(places))
{
}

QString ThunderbirdAddOn::profile() const
{
    for (const QString &root : m_places.profileRoots) {
        if (const QString found = profileIn(root); !found.isEmpty())
            return found;
    }
    return {};
}

bool ThunderbirdAddOn::isInstalled() const
{
    const bool forEverybody = std::ranges::any_of(
        m_places.systemFolders, [](const QString &folder) { return QFileInfo::exists(folder + addOnFile); });
    const QString own = forEverybody ? QString() : profile();
    return forEverybody || (!own.isEmpty() && QFileInfo::exists(own + u"/extensions"_s + addOnFile));
}

bool ThunderbirdAddOn::isRunning() const
{
    // Thunderbird's lock is a link to "ADDRESS:+PROCESS"; one that died leaves it behind.
    static const QRegularExpression process(u"\\+?(\\d+)$"_s);
    const QString own = profile();
    char target[256] = {};
    if (own.isEmpty() || ::readlink(QFile::encodeName(own + u"/lock"_s).constData(), target, sizeof target - 1) < 0)
        return false;
    const pid_t owner = process.match(QString::fromLocal8Bit(target)).captured(1).toInt();
    QFile command(u"/proc/%1/cmdline"_s.arg(owner));
    return owner > 0 && ::kill(owner, 0) == 0 && command.open(QIODevice::ReadOnly)
        && command.readAll().split('\0').first().contains("thunderbird");
}

} // namespace kest
