// Native messages as they come over the pipe: the same messages, however the bytes are cut up.

#include "FrameReader.h"
#include "Target.h"

#include <QList>

using namespace kest;
using namespace kest::fuzz;

namespace {

struct Reading {
    QList<QByteArray> messages;
    std::optional<quint32> impossible;
    bool isAtBoundary = false;

    bool operator==(const Reading &) const = default;
};

Reading readInSteps(const QByteArray &bytes, qsizetype step)
{
    FrameReader reader;
    Reading reading;
    for (qsizetype at = 0; at < bytes.size(); at += step) {
        reader.append(QByteArrayView(bytes).sliced(at, qMin(step, bytes.size() - at)));
        while (auto message = reader.next())
            reading.messages += *message;
    }
    reading.impossible = reader.impossibleLength();
    reading.isAtBoundary = reader.isAtBoundary();
    return reading;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Choices choices(data, size);
    const qsizetype step = 1 + choices.byte();
    const QByteArray bytes = choices.rest();
    const Reading reading = readInSteps(bytes, step);
    qsizetype total = 0;
    for (const QByteArray &message : reading.messages)
        total += message.size() + qsizetype(sizeof(quint32));
    KEST_MUST(total <= bytes.size());
    KEST_MUST(!reading.impossible || *reading.impossible > FrameReader::lengthLimit);
    KEST_MUST(reading.impossible || reading.isAtBoundary == (total == bytes.size()));
    KEST_MUST(reading == readInSteps(bytes, qMax<qsizetype>(bytes.size(), 1)));
    return 0;
}
