#pragma once

#include "platform/linux/sound/FileFailure.h"
#include "platform/linux/sound/RecordingFile.h"

#include <optional>

namespace kest {

/// Turns a recording that is complete, or cut off, into an ordinary file under
/// the name that it has by now. One that was deleted, before or meanwhile, is
/// saved from what is still open: where it was, under its name or the next free
/// one, or else in the person's home folder; `file.url()` tells. Lasts
/// `sampleCount` samples; null: all that is there. Blocks for as long as the disk
/// needs. After a failure the recording is as it was: playable, but not ordinary.
std::optional<FileFailure> finishRecording(RecordingFile &file, std::optional<qint64> sampleCount);

/// True when the file behind `file` holds a movie fragment, so was not finished.
/// Null when it cannot be read.
std::optional<bool> isFragmented(int file);

/// True when the file behind `file` is an ordinary one with sound, and nothing of
/// it is missing at the end. Null when it cannot be read.
std::optional<bool> isWholeAndFinished(int file);

/// False when the file behind `file` is empty or holds a header and nothing
/// else: then nothing was recorded into it. True when it cannot be told.
bool mayHoldSound(int file);

} // namespace kest
