#include "platform/linux/mail/DefaultMailApplication.h"

#include "platform/linux/mail/KeyFile.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace kest {

using namespace Qt::StringLiterals;

namespace {

const QString scheme = QStringLiteral("x-scheme-handler/mailto");

QStringList applicationFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

// Most important first: the desktop's own lists before the general ones, the person's before the system's.
QStringList associationFiles()
{
    QStringList desktops;
    for (const QString &name : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts))
        desktops.append(name.toLower() + u'-');
    desktops.append(QString());
    QStringList files;
    const QStringList folders =
        QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation) + applicationFolders();
    for (const QString &folder : folders) {
        for (const QString &desktop : std::as_const(desktops))
            files.append(folder + u'/' + desktop + u"mimeapps.list"_s);
    }
    return files;
}

std::optional<InstalledMailApplication> installed(const QString &desktopId)
{
    for (const QString &folder : applicationFolders()) {
        const KeyFile entry(folder + u'/' + desktopId);
        const QStringList command = commandOfExecKey(entry.value(u"Desktop Entry"_s, u"Exec"_s));
        if (!command.isEmpty() && entry.value(u"Desktop Entry"_s, u"Hidden"_s) != u"true")
            return InstalledMailApplication{desktopId, entry.value(u"Desktop Entry"_s, u"Name"_s), command};
    }
    return std::nullopt;
}

std::optional<InstalledMailApplication> firstInstalled(const QStringList &files, const QString &group)
{
    for (const QString &file : files) {
        for (const QString &id : KeyFile(file).value(group, scheme).split(u';', Qt::SkipEmptyParts)) {
            if (auto application = installed(id.trimmed()))
                return application;
        }
    }
    return std::nullopt;
}

QStringList cacheFiles()
{
    QStringList files;
    for (const QString &folder : applicationFolders())
        files.append(folder + u"/mimeinfo.cache"_s);
    return files;
}

} // namespace

bool InstalledMailApplication::serves(const QString &busName) const
{
    return desktopId.contains(busName.section(u'.', -1), Qt::CaseInsensitive);
}

std::optional<InstalledMailApplication> defaultMailApplication()
{
    if (auto chosen = firstInstalled(associationFiles(), u"Default Applications"_s))
        return chosen;
    if (auto added = firstInstalled(associationFiles(), u"Added Associations"_s))
        return added;
    if (auto claiming = firstInstalled(cacheFiles(), u"MIME Cache"_s))
        return claiming;
    const QString thunderbird = QStandardPaths::findExecutable(u"thunderbird"_s);
    if (thunderbird.isEmpty())
        return std::nullopt;
    return InstalledMailApplication{u"thunderbird.desktop"_s, u"Thunderbird"_s, {thunderbird}};
}

} // namespace kest
