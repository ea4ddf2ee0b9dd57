#pragma once

#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/RecordingJournal.h"

#include <QList>

#include <memory>
#include <vector>

namespace kest {

/// Finishes recordings that an earlier run left unfinished. For a worker thread.
class RecordingRecovery
{
public:
    RecordingRecovery(std::shared_ptr<EncoderLoader> encoders, QList<FolderURL> folders);

    /// Finishes what the entries tell of. Entries whose file, or its disk, is
    /// out of reach stay for another start.
    void finish(std::vector<std::unique_ptr<RecordingJournal::Entry>> entries);

private:
    enum class Outcome { Done, TryAgainLater };

    Outcome finishOne(const RecordingJournal::Entry &entry);
    std::optional<RecordingFile> find(const RecordingJournal::Entry &entry) const;
    QList<FolderURL> placesFor(const FileURL &file) const;

    const std::shared_ptr<EncoderLoader> m_encoders;
    const QList<FolderURL> m_folders;
};

} // namespace kest
