#include "platform/linux/sound/boxes/SoundTrack.h"

#include <initializer_list>
#include <utility>

namespace kest {

namespace {

constexpr size_t largestDecoderConfig = 1024; // ours has 54 bytes
constexpr quint32 largestSampleRate = 0xffff; // the sample entry has 16 bits for it

// ISO/IEC 14496-1, 7.2.2: descriptors and their lengths.
constexpr uchar streamDescriptor = 3;
constexpr uchar decoderDescriptor = 4;
constexpr uchar configDescriptor = 5;
constexpr uchar objectTypeAac = 0x40;
constexpr uchar audioObjectTypeLowComplexity = 2;

std::optional<Bytes> findPath(Bytes bytes, std::initializer_list<quint32> types)
{
    for (const quint32 type : types) {
        const auto inner = findBox(bytes, type);
        if (!inner)
            return std::nullopt;
        bytes = *inner;
    }
    return bytes;
}

/// The payload of the descriptor with this tag, which must come next.
FieldReader enterDescriptor(FieldReader *fields, uchar tag)
{
    const bool expected = fields->read<uchar>() == tag;
    size_t length = 0;
    for (int i = 0; i < 4; ++i) { // seven bits a byte, four bytes at most
        const uchar byte = fields->read<uchar>();
        length = length << 7 | (byte & 0x7fU);
        if (!(byte & 0x80))
            break;
    }
    return FieldReader(expected ? fields->take(length) : Bytes());
}

bool isMonoLowComplexity(Bytes decoderConfig)
{
    FieldReader fields(decoderConfig);
    fields.skip(4); // version, flags
    FieldReader stream = enterDescriptor(&fields, streamDescriptor);
    stream.skip(2); // number of the stream
    if (stream.read<uchar>() & 0xe0)
        return false; // refers to other streams or places
    FieldReader decoder = enterDescriptor(&stream, decoderDescriptor);
    if (decoder.read<uchar>() != objectTypeAac)
        return false;
    decoder.skip(12);
    FieldReader config = enterDescriptor(&decoder, configDescriptor);
    // ISO/IEC 14496-3, 1.6.2.1: 5 bits object type, 4 sampling frequency, 4 channels, 1 short frames.
    const quint16 bits = config.read<quint16>();
    return config.isGood() && bits >> 11 == audioObjectTypeLowComplexity && (bits >> 3 & 0xf) == 1 && !(bits & 4);
}

std::optional<quint32> readTimescale(Bytes media)
{
    const auto header = findBox(media, boxType("mdhd"));
    if (!header)
        return std::nullopt;
    FieldReader fields(*header);
    const bool wide = fields.read<quint32>() >> 24 == 1;
    fields.skip(wide ? 16 : 8); // times of creation and change
    const quint32 timescale = fields.read<quint32>();
    return fields.isGood() && timescale > 0 && timescale <= largestSampleRate ? std::optional(timescale) : std::nullopt;
}

/// The whole `esds` box, header included.
std::optional<QByteArray> readDecoderConfig(Bytes media)
{
    const auto entries = findPath(media, {boxType("minf"), boxType("stbl"), boxType("stsd")});
    FieldReader fields(entries.value_or(Bytes()));
    fields.skip(4);
    if (fields.read<quint32>() != 1)
        return std::nullopt;
    const auto entry = findBox(fields.rest(), boxType("mp4a"));
    FieldReader sampleEntry(entry.value_or(Bytes()));
    sampleEntry.skip(28); // of an AudioSampleEntry, before the boxes in it
    Bytes boxes = sampleEntry.rest();
    while (sampleEntry.isGood()) {
        const Bytes here = boxes;
        const auto box = takeBox(&boxes);
        if (!box)
            return std::nullopt;
        const Bytes whole = here.first(here.size() - boxes.size());
        if (box->type == boxType("esds") && whole.size() <= largestDecoderConfig && isMonoLowComplexity(box->payload))
            return QByteArray(reinterpret_cast<const char *>(whole.data()), qsizetype(whole.size()));
    }
    return std::nullopt;
}

quint32 readDefaultPacketSize(Bytes movie)
{
    const auto defaults = findPath(movie, {boxType("mvex"), boxType("trex")});
    FieldReader fields(defaults.value_or(Bytes()));
    fields.skip(16); // version and flags, track, description, duration
    return fields.read<quint32>();
}

} // namespace

std::optional<SoundTrack> readSoundTrack(Bytes movie)
{
    const auto track = findOnlyBox(movie, boxType("trak"));
    const auto media = findBox(track.value_or(Bytes()), boxType("mdia"));
    if (!media)
        return std::nullopt;
    const auto sampleRate = readTimescale(*media);
    const auto decoderConfig = readDecoderConfig(*media);
    if (!sampleRate || !decoderConfig)
        return std::nullopt;
    return SoundTrack{*sampleRate, readDefaultPacketSize(movie), *decoderConfig};
}

} // namespace kest
