#include "platform/linux/sound/boxes/Fragment.h"

#include <utility>

namespace kest {

namespace {

constexpr quint32 mostPackets = 1024; // 24 s in one fragment; ours have four packets

// ISO/IEC 14496-12, 8.8.7 and 8.8.8: which fields are there.
constexpr quint32 hasBaseOffset = 0x1;
constexpr quint32 hasDescription = 0x2;
constexpr quint32 hasDefaultDuration = 0x8;
constexpr quint32 hasDefaultSize = 0x10;
constexpr quint32 hasDataOffset = 0x1;
constexpr quint32 hasFirstFlags = 0x4;
constexpr quint32 hasDurations = 0x100;
constexpr quint32 hasSizes = 0x200;
constexpr quint32 hasFlags = 0x400;
constexpr quint32 hasTimeOffsets = 0x800;

quint32 readFlags(FieldReader *fields)
{
    return fields->read<quint32>() & 0xffffff;
}

std::optional<quint32> readDefaultSize(Bytes trackHeader, quint32 usual)
{
    FieldReader fields(trackHeader);
    const quint32 flags = readFlags(&fields);
    fields.skip(4); // track
    if (flags & hasBaseOffset)
        return std::nullopt;
    fields.skip((flags & hasDescription ? 4 : 0) + (flags & hasDefaultDuration ? 4 : 0));
    const quint32 size = flags & hasDefaultSize ? fields.read<quint32>() : usual;
    return fields.isGood() ? std::optional(size) : std::nullopt;
}

bool readRun(Bytes run, quint32 defaultSize, Fragment *fragment)
{
    FieldReader fields(run);
    const quint32 flags = readFlags(&fields);
    const quint32 count = fields.read<quint32>();
    if (!(flags & hasDataOffset) || count > mostPackets)
        return false;
    fragment->dataOffset = fields.read<quint32>(); // signed in the standard; nothing of ours lies in front of it
    fields.skip(flags & hasFirstFlags ? 4 : 0);
    for (quint32 packet = 0; packet < count && fields.isGood(); ++packet) {
        fields.skip(flags & hasDurations ? 4 : 0);
        const quint32 size = flags & hasSizes ? fields.read<quint32>() : defaultSize;
        fields.skip((flags & hasFlags ? 4 : 0) + (flags & hasTimeOffsets ? 4 : 0));
        if (size == 0)
            return false;
        fragment->packetSizes.push_back(size);
    }
    return fields.isGood();
}

} // namespace

bool readFragment(Bytes movieFragment, quint32 defaultPacketSize, Fragment *fragment)
{
    *fragment = {};
    const auto track = findOnlyBox(movieFragment, boxType("traf"));
    if (!track)
        return false;
    const auto header = findBox(*track, boxType("tfhd"));
    const auto run = findOnlyBox(*track, boxType("trun"));
    if (!header || !run)
        return false;
    const auto size = readDefaultSize(*header, defaultPacketSize);
    return size && readRun(*run, *size, fragment);
}

} // namespace kest
