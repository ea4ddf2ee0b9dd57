#pragma once

#include "platform/linux/sound/RecordingFile.h"
#include "platform/linux/sound/RecordingJournal.h"

#include <QList>

#include <memory>
#include <optional>
#include <vector>

namespace kest {

/// Finishes recordings that an earlier run left unfinished. For a worker thread.
class RecordingRecovery
{
public:
    /// `folders` are looked through for recordings that are not in their place.
    explicit RecordingRecovery(QList<FolderURL> folders);

    /// Finishes what the entries tell of. Entries whose file, or its disk, is
    /// out of reach stay for another start.
    void finish(std::vector<std::unique_ptr<RecordingJournal::Entry>> entries);

private:
    enum class Outcome {
        Finished,
        NothingToFinish, ///< It was finished before, or is gone.
        TryAgainLater
    };

    Outcome finishOne(const RecordingJournal::Entry &entry);

    const QList<FolderURL> m_folders;
};

} // namespace kest
