#pragma once

#include "platform/linux/sound/boxes/BoxWriter.h"

#include <QList>
#include <QTemporaryFile>

#include <memory>

namespace kest::test {

/// A small fragmented recording, put together byte by byte, in order or not.
struct MadeRecording {
    QByteArray bytes;
    QByteArray media;           ///< All packets, one behind the other.
    QList<quint32> sizes;       ///< Of each packet.
    QList<qsizetype> ends;      ///< Of each packet in `bytes`.
    QList<qsizetype> fragments; ///< Where each `moof` begins in `bytes`.
    qsizetype headSize = 0;
};

/// How a recording, or one fragment of it, is told.
struct Form {
    enum class Sizes { InRun, InFragment, InHead };
    Sizes sizes = Sizes::InRun;
    bool wideMedia = false;  ///< The media's box has its size in 64 bits.
    bool openMedia = false;  ///< The media's box says that it reaches to the end of the file.
    int tracks = 1;
    quint16 config = 0x1208; ///< AudioSpecificConfig: AAC-LC, 44100 Hz, mono.
    qint32 misplaced = 0;    ///< Added to where the packets are said to be.
};

/// Each inner list is a fragment of packets of so many bytes.
MadeRecording makeRecording(const QList<QList<quint32>> &fragments, const Form &form = {});

/// A file with these bytes, open.
std::unique_ptr<QTemporaryFile> fileOf(const QByteArray &bytes);

} // namespace kest::test
