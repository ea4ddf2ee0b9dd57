#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace kest::testing {

/// Settings files in a throw-away folder.
struct SettingsScene {
    /// A path at which there is nothing yet, not even the folder.
    QString freshPath() { return dir.filePath(QStringLiteral("%1/kest/settings.ini").arg(++count)); }

    static bool writeRaw(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        return QDir().mkpath(QFileInfo(path).path()) && file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
    }

    static QByteArray readRaw(const QString &path)
    {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Names of the damaged files that were put aside.
    static QStringList damagedBeside(const QString &path)
    {
        return QFileInfo(path).dir().entryList({ QStringLiteral("*.damaged-*") });
    }

    QTemporaryDir dir;
    int count = 0;
};

} // namespace kest::testing
