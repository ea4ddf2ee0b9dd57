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
/// entry that nobody holds belongs to a process that is gone. Any thread.
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

        int ageInDays() const;

        /// The recording is finished or gone: nothing is left to remember.
        void done();

    private:
        friend class RecordingJournal;
        FileURL m_file;
        quint64 m_inode = 0;
        qint64 m_birthTime = 0;
        QByteArray m_path;
        Descriptor m_lock;
    };

    /// `folder` (native path) is made when the first entry is.
    explicit RecordingJournal(QByteArray folder) : m_folder(std::move(folder)) { }

    /// The place under XDG_STATE_HOME (XDG Base Directory Specification).
    static QByteArray defaultFolder();

    /// Null when it cannot be remembered; the recording is then playable after
    /// a crash as ever, but stays unfinished.
    std::unique_ptr<Entry> remember(const RecordingFile &file) const;

    /// The entries of processes that are gone, each locked by this one.
    std::vector<std::unique_ptr<Entry>> interrupted() const;

private:
    std::unique_ptr<Entry> take(const QByteArray &path) const;

    const QByteArray m_folder;
};

} // namespace kest
