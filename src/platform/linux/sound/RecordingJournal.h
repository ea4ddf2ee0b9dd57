#pragma once

#include "platform/linux/sound/RecordingFile.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace kest {

/// Remembers on disk which recordings are not finished yet, so that the next
/// start can finish those that a crash or a power cut left.
///
/// One small file for each recording, locked by the process that records: an
/// entry that nobody holds belongs to a process that is gone. It is there
/// before the recording's file is, so that none is ever left behind unknown.
/// Any thread.
class RecordingJournal
{
public:
    /// What is remembered of one recording. Dropping the object without `done`
    /// leaves the entry for the next start.
    class Entry
    {
    public:
        const FileURL &file() const { return m_file; }
        quint64 inode() const { return m_inode; }

        /// See RecordingFile::birthTime; 0 when it was not remembered.
        qint64 birthTime() const { return m_birthTime; }

        /// The file was about to be made; whether it was, nobody wrote down.
        bool isOnlyAnnounced() const { return m_inode == 0; }

        /// The moment of the announcement, in nanoseconds since 1970.
        qint64 writtenAt() const;

        /// The announced file is there: remembers what tells it from others. False
        /// when that cannot be done; the recording is then playable after a crash
        /// as ever, but stays unfinished.
        bool confirm(const RecordingFile &file);

        /// Has what is remembered safe from power cuts. Takes as long as the disk
        /// takes.
        void sync() const;

        int ageInDays() const;

        /// The recording is finished or gone: nothing is left to remember.
        void done();

    private:
        friend class RecordingJournal;
        FileURL m_file;
        quint64 m_inode = 0;
        qint64 m_birthTime = 0;
        QByteArray m_path;
        FileDescriptor m_lock;
    };

    /// `folder` (native path) is made when the first entry is.
    explicit RecordingJournal(QByteArray folder) : m_folder(std::move(folder)) { }

    /// The place under XDG_STATE_HOME (XDG Base Directory Specification).
    static QByteArray defaultFolder();

    /// A recording's file is about to be made there. Not synced: fast enough for
    /// the main thread. Null when it cannot be written down.
    std::unique_ptr<Entry> announce(const FileURL &file) const;

    /// The entries of processes that are gone, each locked by this one. Takes
    /// away what a process left that was killed while it wrote one.
    std::vector<std::unique_ptr<Entry>> interrupted() const;

private:
    std::unique_ptr<Entry> take(const QByteArray &path) const;
    void removeHalfWritten() const;

    const QByteArray m_folder;
};

} // namespace kest
