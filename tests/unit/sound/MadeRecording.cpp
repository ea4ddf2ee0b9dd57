#include "MadeRecording.h"

#include <numeric>

namespace kest::test {

namespace {

void writeDecoderConfig(BoxWriter *out, quint16 config)
{
    out->fullBox("esds", 0, 0, [&] {
        out->put(QByteArray::fromHex("03190001000411401500000000011940000119400502"));
        out->put(config);
        out->put(QByteArray::fromHex("060102"));
    });
}

void writeTrack(BoxWriter *out, quint16 config)
{
    out->box("trak", [&] {
        out->box("mdia", [&] {
            out->fullBox("mdhd", 0, 0, [&] {
                out->putZeros(8);
                out->put(quint32(44100));
                out->putZeros(8);
            });
            out->box("minf", [&] {
                out->box("stbl", [&] {
                    out->fullBox("stsd", 0, 0, [&] {
                        out->put(quint32(1));
                        out->box("mp4a", [&] {
                            out->putZeros(28);
                            writeDecoderConfig(out, config);
                        });
                    });
                });
            });
        });
    });
}

void writeHead(BoxWriter *out, const Form &form, quint32 packetSize)
{
    out->box("ftyp", [&] { out->put(QByteArray("M4A \0\0\2\0M4A ", 12)); });
    out->box("moov", [&] {
        for (int track = 0; track < form.tracks; ++track)
            writeTrack(out, form.config);
        out->box("mvex", [&] {
            out->fullBox("trex", 0, 0, [&] {
                out->putZeros(12);
                out->put(form.sizes == Form::Sizes::InHead ? packetSize : 0U);
                out->putZeros(4);
            });
        });
    });
}

void writeFragmentBox(BoxWriter *out, const QList<quint32> &sizes, const Form &form)
{
    const qsizetype start = out->bytes().size();
    qsizetype offsetAt = 0;
    out->box("moof", [&] {
        out->fullBox("mfhd", 0, 0, [&] { out->put(quint32(1)); });
        out->box("traf", [&] {
            const bool inFragment = form.sizes == Form::Sizes::InFragment;
            out->fullBox("tfhd", 0, inFragment ? 0x20010 : 0x20000, [&] {
                out->put(quint32(1));
                if (inFragment)
                    out->put(sizes.first());
            });
            const bool inRun = form.sizes == Form::Sizes::InRun;
            out->fullBox("trun", 0, inRun ? 0x201 : 1, [&] {
                out->put(quint32(sizes.size()));
                offsetAt = out->bytes().size();
                out->put(quint32(0));
                if (inRun)
                    out->put(std::span<const quint32>(sizes.constData(), size_t(sizes.size())));
            });
        });
    });
    const qsizetype length = out->bytes().size() - start + (form.wideMedia ? 16 : 8);
    out->putAt(offsetAt, quint32(length + form.misplaced));
}

} // namespace

MadeRecording makeRecording(const QList<QList<quint32>> &fragments, const Form &form)
{
    BoxWriter out;
    writeHead(&out, form, fragments.isEmpty() ? 0 : fragments.first().first());
    MadeRecording made;
    made.headSize = out.bytes().size();
    for (const QList<quint32> &sizes : fragments) {
        made.fragments.append(out.bytes().size());
        writeFragmentBox(&out, sizes, form);
        const auto length = std::accumulate(sizes.begin(), sizes.end(), 0U);
        out.put(form.openMedia ? 0U : form.wideMedia ? 1U : length + 8);
        out.put(QByteArray("mdat"));
        if (form.wideMedia)
            out.put(quint64(length + 16));
        for (const quint32 size : sizes) {
            const QByteArray packet(size, char('A' + made.sizes.size() % 26));
            out.put(packet);
            made.media.append(packet);
            made.sizes.append(size);
            made.ends.append(out.bytes().size());
        }
    }
    made.bytes = out.bytes();
    return made;
}

std::unique_ptr<QTemporaryFile> fileOf(const QByteArray &bytes)
{
    auto file = std::make_unique<QTemporaryFile>();
    if (!file->open() || file->write(bytes) != bytes.size() || !file->flush())
        qFatal("no temporary file");
    return file;
}

} // namespace kest::test
