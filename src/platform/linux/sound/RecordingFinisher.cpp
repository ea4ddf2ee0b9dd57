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

/// Where its folder has no room. What is hidden there goes only once there is a better copy.
std::optional<FileFailure> finishAtHome(RecordingFile &file, std::optional<qint64> sampleCount,
                                        const std::optional<RecordingReplacement> &hidden, const FileFailure &failure)
{
    if (!file.saveIn(FileURL::fromPath(QDir::homePath())))
        return failure;
    std::optional<RecordingReplacement> copy;
    const auto failed = finishBeside(file, sampleCount, &copy);
    const bool isHidden = hidden && hidden->isHidden();
    if (isHidden && !failed)
        hidden->remove();
    if (isHidden && failed && copy)
        copy->remove();
    return failed;
}

} // namespace

std::optional<FileFailure> finishRecording(RecordingFile &file, std::optional<qint64> sampleCount)
{
    std::optional<RecordingReplacement> copy;
    auto failed = finishBeside(file, sampleCount, &copy);
    // Of a deleted one nothing is left for the next start.
    const auto isLost = [&] { return failed && !file.locate(); };
    if (isLost() && !(copy && copy->isHidden())) // its folder may have gone with the copy in it
        failed = finishBeside(file, sampleCount, &copy);
    return isLost() ? finishAtHome(file, sampleCount, copy, *failed) : failed;
}

std::optional<bool> isFragmented(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    return boxes.areReadable ? std::optional(boxes.holdFragment) : std::nullopt;
}

std::optional<bool> isWholeAndFinished(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    struct stat status = {};
    if (!boxes.areReadable || fstat(file, &status) < 0)
        return std::nullopt;
    return boxes.holdMedia && !boxes.holdFragment && quint64(status.st_size) == boxes.length;
}

bool mayHoldSound(int file)
{
    const FirstBoxes boxes = firstBoxes(file);
    return !boxes.areReadable || boxes.holdFragment || boxes.holdMedia || !boxes.endWithTheFile;
}

} // namespace kest
