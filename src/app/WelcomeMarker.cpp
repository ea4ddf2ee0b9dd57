#include "app/WelcomeMarker.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcWelcome, "kest.welcome")

const QString markerName = QStringLiteral("welcomed");
const QString unfinishedRecordings = QStringLiteral("unfinished-recordings"); // made by the first recording

// QStandardPaths knows no place for state before Qt 6.7.
QString stateFolder()
{
    QString state = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    if (!QDir::isAbsolutePath(state))
        state = QDir::homePath() + QStringLiteral("/.local/state");
    return state + QStringLiteral("/kest");
}

bool tellsOfEarlierStart(const QString &folder, const QString &settingsFile)
{
    const QDir state(folder);
    return state.exists(markerName) || QFile::exists(settingsFile) || state.exists(unfinishedRecordings);
}

/// Nobody else's business, as the specification says of it.
bool makePrivate(const QString &folder)
{
    const QFileInfo info(folder);
    if (info.isDir())
        return true;
    return makePrivate(info.path())
        && QDir(info.path()).mkdir(info.fileName(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

WelcomeMarker::WelcomeMarker(const QString &settingsFile)
    : m_folder(stateFolder())
    , m_isFirstStart(!tellsOfEarlierStart(m_folder, settingsFile))
{
}

void WelcomeMarker::write() const
{
    QFile marker(m_folder + u'/' + markerName);
    if (!makePrivate(m_folder) || !marker.open(QFile::WriteOnly))
        qCWarning(lcWelcome, "It cannot be remembered that the welcome was shown: %ls",
                  qUtf16Printable(marker.error() == QFile::NoError ? m_folder : marker.errorString()));
}

} // namespace kest
