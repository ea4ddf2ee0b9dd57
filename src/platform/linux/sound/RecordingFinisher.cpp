#include "platform/linux/sound/RecordingFinisher.h"

#include "platform/linux/sound/boxes/FinishedWriter.h"

#include <QDir>
#include <QtEndian>

#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

namespace kest {

namespace {

/// What stands at the beginning of a file.
struct FirstBoxes {
    bool areReadable = true;
    bool holdFragment = false;
    bool holdMedia = false;
    bool endWithTheFile = false;
    quint64 length = 0; ///< By their own word, in bytes.
};

FirstBoxes firstBoxes(int file)
{
    // ISO/IEC 14496-12: a file is a row of boxes, each with its length in 32 bits and its type.
    FirstBoxes found;
    for (int box = 0; box < 8 && !found.holdFragment; ++box) {
        uchar header[8] = {};
        const ssize_t length = pread(file, header, sizeof header, off_t(found.length));
        found.areReadable = length >= 0;
        found.endWithTheFile = length >= 0 && length < ssize_t(sizeof header);
        if (length < ssize_t(sizeof header))
            break;
        found.holdFragment = std::memcmp(header + 4, "moof", 4) == 0;
        found.holdMedia = found.holdMedia || std::memcmp(header + 4, "mdat", 4) == 0;
        const quint32 boxLength = qFromBigEndian<quint32>(header);
        if (boxLength < sizeof header)
            break; // a length of 0 or 1 is never in front of a fragment of ours
        found.length += boxLength;
    }
    return found;
}

std::optional<FileFailure> finishBeside(RecordingFile &file, std::optional<qint64> sampleCount,
                                        std::optional<RecordingReplacement> *copy)
{
    FileFailure failure;
    *copy = file.createReplacement(&failure);
    if (!*copy)
        return failure;
    if (const auto failed = copyAsFinished(file.descriptor(), (*copy)->descriptor(), sampleCount)) {
        (*copy)->remove();
        return failed;
    }
    return file.replace(**copy);
}

} // namespace

std::optional<FileFailure> finishRecording(RecordingFile &file, std::optional<qint64> sampleCount)
{
    std::optional<RecordingReplacement> copy;
    auto failed = finishBeside(file, sampleCount, &copy);
    // Of a deleted one nothing is left for the next start. Its folder may have gone with the copy in it; then that has no room.
    for (const bool atHome : {false, true}) {
        if (!failed || file.locate() || (copy && copy->isHidden()))
            return failed;
        if (atHome && !file.saveIn(FileURL::fromPath(QDir::homePath())))
            return failed;
        failed = finishBeside(file, sampleCount, &copy);
    }
    return failed;
}

std::optional<bool> isFragmented(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    return boxes.areReadable ? std::optional(boxes.holdFragment) : std::nullopt;
}

bool isWholeAndFinished(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    struct stat status = {};
    return boxes.areReadable && boxes.holdMedia && !boxes.holdFragment && fstat(file, &status) == 0
        && quint64(status.st_size) == boxes.length;
}

bool mayHoldSound(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    return !boxes.areReadable || boxes.holdFragment || boxes.holdMedia || !boxes.endWithTheFile;
}

} // namespace kest
