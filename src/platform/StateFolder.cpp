#include "platform/StateFolder.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

#include <cerrno>

namespace kest {

QByteArray stateFolder()
{
    QByteArray state = qgetenv("XDG_STATE_HOME");
    if (!state.startsWith('/'))
        state = QFile::encodeName(QDir::homePath()) + "/.local/state";
    return state + "/kest";
}

QByteArray unfinishedRecordingsFolder()
{
    return stateFolder() + "/unfinished-recordings";
}

bool makePrivateFolder(const QByteArray &path)
{
    if (mkdir(path.constData(), 0700) == 0 || errno == EEXIST)
        return true;
    const QByteArray parent = path.left(qMax<qsizetype>(path.lastIndexOf('/'), 1));
    return errno == ENOENT && path.size() > 1 && makePrivateFolder(parent)
        && (mkdir(path.constData(), 0700) == 0 || errno == EEXIST);
}

} // namespace kest
