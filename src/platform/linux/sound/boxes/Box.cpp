#include "platform/linux/sound/boxes/Box.h"

namespace kest {

std::optional<BoxHeader> readBoxHeader(Bytes bytes, quint64 left)
{
    FieldReader fields(bytes);
    BoxHeader header;
    header.size = fields.read<quint32>();
    header.type = fields.read<quint32>();
    header.length = 8;
    if (header.size == 0) {
        header.size = left;
    } else if (header.size == 1) {
        header.size = fields.read<quint64>();
        header.length = 16;
    }
    if (!fields.isGood() || header.size < header.length)
        return std::nullopt;
    return header;
}

std::optional<Box> takeBox(Bytes *bytes)
{
    const auto header = readBoxHeader(*bytes, bytes->size());
    if (!header || header->size > bytes->size())
        return std::nullopt;
    const Box box = {header->type, bytes->first(header->size).subspan(header->length)};
    *bytes = bytes->subspan(header->size);
    return box;
}

std::optional<Bytes> findBox(Bytes bytes, quint32 type)
{
    while (const auto box = takeBox(&bytes)) {
        if (box->type == type)
            return box->payload;
    }
    return std::nullopt;
}

std::optional<Bytes> findOnlyBox(Bytes bytes, quint32 type)
{
    std::optional<Bytes> found;
    while (const auto box = takeBox(&bytes)) {
        if (box->type == type && std::exchange(found, box->payload))
            return std::nullopt;
    }
    return found;
}

} // namespace kest
