#include "integration/mail/InstalledMail.h"

#include "support/FakeMail.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QIODevice>
#include <QStandardPaths>
#include <QTest>

#include <csignal>

namespace kest::test {

using namespace Qt::StringLiterals;

namespace {

QString dataHome()
{
    return qEnvironmentVariable("XDG_DATA_HOME");
}

QString mimeappsFile()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + u"/mimeapps.list"_s;
}

} // namespace

InstalledMail::InstalledMail()
    : m_path(qgetenv("PATH"))
    , m_dataDirs(qgetenv("XDG_DATA_DIRS"))
{
    const QByteArray empty = QFile::encodeName(dataHome() + u"/no-bin"_s);
    QDir().mkpath(QFile::decodeName(empty));
    qputenv("PATH", empty);
    qputenv("XDG_DATA_DIRS", empty);
}

InstalledMail::~InstalledMail()
{
    clear();
    qputenv("PATH", m_path);
    qputenv("XDG_DATA_DIRS", m_dataDirs);
}

void InstalledMail::install(const QString &desktopId, const QString &exec, const QString &name)
{
    const QString entry = u"[Desktop Entry]\nType=Application\nName="_s + name + u"\nExec="_s + exec
        + u"\nMimeType=x-scheme-handler/mailto;\n\n[Desktop Action Compose]\nName=Compose\nExec=/bin/false\n"_s;
    write(dataHome() + u"/applications/"_s + desktopId, entry.toUtf8());
}

void InstalledMail::makeDefault(const QString &desktopId)
{
    const QString list = u"[Default Applications]\ntext/plain=other.desktop\nx-scheme-handler/mailto="_s + desktopId
        + u";gone.desktop;\n"_s;
    write(mimeappsFile(), list.toUtf8());
}

QString InstalledMail::script(const QString &name, const QByteArray &lines)
{
    const QString path = dataHome() + u'/' + name;
    write(path, "#!/bin/sh\n" + lines, true);
    return path;
}

void InstalledMail::clear()
{
    for (const QString &file : std::as_const(m_files))
        QFile::remove(file);
    m_files.clear();
}

void InstalledMail::write(const QString &path, const QByteArray &bytes, bool executable)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the test's file");
    if (executable)
        file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
    m_files.append(path);
}

void endOwner(const QString &busName)
{
    const auto process = QDBusConnection::sessionBus().interface()->servicePid(busName);
    if (process.isValid())
        ::kill(static_cast<pid_t>(process.value()), SIGKILL);
    if (!QTest::qWaitFor([&] { return !isOnBus(busName); }))
        qFatal("the mail application's name stays");
}

} // namespace kest::test
