#include "platform/linux/sound/RecordingFinisher.h"

#include "platform/linux/sound/boxes/FinishedWriter.h"

#include <QtEndian>

#include <unistd.h>

#include <cstring>

namespace kest {

std::optional<FileFailure> finishRecording(RecordingFile &file, std::optional<qint64> sampleCount)
{
    if (!file.locate())
        return FileFailure::fromErrno(ENOENT);
    FileFailure failure;
    const Descriptor replacement = file.createReplacement(&failure);
    if (!replacement.isValid())
        return failure;
    auto failed = copyAsFinished(file.descriptor(), replacement.get(), sampleCount);
    if (!failed)
        failed = file.replace(replacement);
    if (failed)
        file.removeReplacement();
    return failed;
}

std::optional<bool> isFragmented(int file)
{
    // ISO/IEC 14496-12: a file is a row of boxes, each with its length in 32 bits and its type.
    quint64 position = 0;
    for (int box = 0; box < 8; ++box) {
        uchar header[8] = {};
        const ssize_t length = pread(file, header, sizeof header, off_t(position));
        if (length < 0)
            return std::nullopt;
        if (length < ssize_t(sizeof header))
            return false;
        if (std::memcmp(header + 4, "moof", 4) == 0)
            return true;
        const quint32 boxLength = qFromBigEndian<quint32>(header);
        if (boxLength < sizeof header)
            return false; // a length of 0 or 1 is never in front of a fragment of ours
        position += boxLength;
    }
    return false;
}

} // namespace kest
