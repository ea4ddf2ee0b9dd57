#include "app/WelcomeMarker.h"

#include "platform/StateFolder.h"

#include <QFile>
#include <QLoggingCategory>

namespace kest {

namespace {

Q_LOGGING_CATEGORY(lcWelcome, "kest.welcome")

QString markerPath()
{
    return QFile::decodeName(stateFolder() + "/welcomed");
}

bool tellsOfEarlierStart(const QString &settingsFile)
{
    return QFile::exists(markerPath()) || QFile::exists(settingsFile)
        || QFile::exists(QFile::decodeName(unfinishedRecordingsFolder()));
}

} // namespace

WelcomeMarker::WelcomeMarker(const QString &settingsFile) : m_isFirstStart(!tellsOfEarlierStart(settingsFile)) { }

void WelcomeMarker::write() const
{
    makePrivateFolder(stateFolder());
    QFile marker(markerPath());
    if (!marker.open(QFile::WriteOnly))
        qCWarning(lcWelcome, "It cannot be remembered that the welcome was shown: %ls",
                  qUtf16Printable(marker.errorString()));
}

} // namespace kest
