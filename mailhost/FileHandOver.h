#pragma once

#include <QDBusUnixFileDescriptor>
#include <QJsonObject>
#include <QList>
#include <QObject>

namespace kest {

class NativeChannel;

/// Reads the files of one call and sends them to the add-on, piece by piece and
/// only as fast as it takes them, so that memory stays bounded whatever the
/// size. Each file is read from its start to its end.
///
/// Made and started by AddonLink; ends by one of the two signals.
class FileHandOver : public QObject
{
    Q_OBJECT

public:
    /// Raw bytes in a piece: a million characters in base64, within a browser's limit of 1 MiB a message.
    static constexpr qint64 pieceSize = 750000;
    /// Pieces sent and not yet taken.
    static constexpr int window = 4;
    /// All files together: far beyond what mail servers take, and what the mail application holds in memory.
    static constexpr qint64 mostBytes = 2LL * 1024 * 1024 * 1024;

    FileHandOver(NativeChannel &channel, const QList<QDBusUnixFileDescriptor> &files, int firstFile,
                 QObject *parent = nullptr);
    /// Given up before its end, it has the add-on forget what it has got so far.
    ~FileHandOver() override;

    void start();

    /// The add-on took a piece of that file.
    void taken(int file);

    qint64 totalBytes() const { return m_total; }

Q_SIGNALS:
    void progressed(qint64 done, qint64 total);
    void finished();
    /// `words` say what is wrong with the file.
    void failed(const QString &words);

private:
    struct Source {
        QDBusUnixFileDescriptor descriptor;
        qint64 offset = 0;
    };

    bool measure();
    void sendMore();
    bool sendPiece();
    void drop();
    void fail(const QString &words);

    NativeChannel &m_channel;
    QList<Source> m_sources;
    QList<qint64> m_inFlight; ///< Sizes of the pieces under way, oldest first.
    int m_firstFile;
    int m_current = 0;
    qint64 m_total = 0;
    qint64 m_done = 0;
    bool m_ended = false;
};

} // namespace kest
