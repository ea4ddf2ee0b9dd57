// An unfinished recording as a crash, a broken disk or somebody else may have left it: what is found in it is finished into
// a file that holds exactly that, and nothing is made of what is not there.

#include "Target.h"
#include "platform/linux/sound/RecordingFinisher.h"
#include "platform/linux/sound/boxes/FinishedWriter.h"
#include "platform/linux/sound/boxes/FragmentIndex.h"
#include "platform/linux/sound/boxes/ProgressiveHeader.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

using namespace kest;
using namespace kest::fuzz;

namespace {

/// A file in memory that every input begins anew.
class MemoryFile
{
public:
    int descriptor() const { return m_file; }

    void setBytes(Bytes bytes)
    {
        KEST_MUST(ftruncate(m_file, 0) == 0);
        KEST_MUST(pwrite(m_file, bytes.data(), bytes.size(), 0) == ssize_t(bytes.size()));
    }

    QByteArray bytes() const
    {
        QByteArray read(lseek(m_file, 0, SEEK_END), Qt::Uninitialized);
        KEST_MUST(pread(m_file, read.data(), size_t(read.size()), 0) == read.size());
        return read;
    }

private:
    const int m_file = memfd_create("file", MFD_CLOEXEC);
};

/// What the recording holds, as the index finds it.
struct Contents {
    std::vector<quint32> sizes;
    QByteArray media;
};

Contents contentsOf(int file, Bytes bytes)
{
    FileWindow window(file);
    FileFailure failure;
    const auto index = FragmentIndex::read(window, &failure);
    KEST_MUST(index);
    Contents contents{index->packetSizes(), {}};
    quint64 end = 0;
    for (const FragmentIndex::Run &run : index->runs()) {
        KEST_MUST(run.position >= end && run.length > 0);
        end = run.position + run.length;
        KEST_MUST(end <= bytes.size());
        contents.media.append(reinterpret_cast<const char *>(bytes.data() + run.position), qsizetype(run.length));
    }
    return contents;
}

Bytes insideOf(Bytes bytes, std::initializer_list<quint32> path)
{
    for (const quint32 type : path) {
        const auto inner = findBox(bytes, type);
        KEST_MUST(inner);
        bytes = *inner;
    }
    return bytes;
}

std::vector<quint32> sizesIn(Bytes table)
{
    FieldReader fields(insideOf(table, {boxType("stsz")}));
    fields.skip(8);
    std::vector<quint32> sizes(fields.read<quint32>());
    for (quint32 &size : sizes)
        size = fields.read<quint32>();
    KEST_MUST(fields.isGood() && fields.rest().empty());
    return sizes;
}

quint64 samplesIn(Bytes table)
{
    FieldReader fields(insideOf(table, {boxType("stts")}));
    fields.skip(4);
    quint64 samples = 0;
    for (quint32 entry = fields.read<quint32>(); entry > 0; --entry) {
        const quint64 packets = fields.read<quint32>();
        samples += packets * fields.read<quint32>();
    }
    KEST_MUST(fields.isGood() && fields.rest().empty());
    return samples;
}

void checkFinished(const MemoryFile &file, const Contents &contents, qint64 samples, size_t packets)
{
    KEST_MUST(isFragmented(file.descriptor()) == false);
    const QByteArray bytes = file.bytes();
    const Bytes whole(reinterpret_cast<const uchar *>(bytes.constData()), size_t(bytes.size()));
    const Bytes media = insideOf(whole, {boxType("mdat")});
    KEST_MUST(media.data() + media.size() == whole.data() + whole.size());
    KEST_MUST(contents.media.startsWith({reinterpret_cast<const char *>(media.data()), qsizetype(media.size())}));
    const Bytes table = insideOf(
        whole, {boxType("moov"), boxType("trak"), boxType("mdia"), boxType("minf"), boxType("stbl")});
    KEST_MUST(std::ranges::equal(sizesIn(table), std::span(contents.sizes).first(packets)));
    KEST_MUST(samplesIn(table) == quint64(samples + SoundTrack::primingSamples));
    FieldReader offsets(insideOf(table, {boxType("stco")}));
    offsets.skip(8);
    KEST_MUST(offsets.read<quint32>() == quint32(media.data() - whole.data()));
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static MemoryFile recording;
    static MemoryFile finished;
    const Bytes bytes(data, size);
    recording.setBytes(bytes);
    (void)isFragmented(recording.descriptor());
    finished.setBytes({});
    if (copyAsFinished(recording.descriptor(), finished.descriptor(), std::nullopt))
        return 0;
    const Contents contents = contentsOf(recording.descriptor(), bytes);
    const auto packets = contents.sizes.size();
    const qint64 samples = qint64(packets) * SoundTrack::packetSamples - SoundTrack::primingSamples;
    checkFinished(finished, contents, samples, packets);
    // A recording that is not whole must never count as one.
    KEST_MUST(copyAsFinished(recording.descriptor(), finished.descriptor(), samples + 1));
    const qint64 fewer = samples / 2 + 1;
    finished.setBytes({});
    KEST_MUST(!copyAsFinished(recording.descriptor(), finished.descriptor(), fewer));
    checkFinished(finished, contents, fewer, size_t(packetsFor(fewer)));
    return 0;
}
