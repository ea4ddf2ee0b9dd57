#include "MadeRecording.h"

#include "platform/linux/sound/boxes/FinishedWriter.h"
#include "platform/linux/sound/boxes/ProgressiveHeader.h"
#include "support/FailingCalls.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <numeric>
#include <unistd.h>

using namespace kest;
using namespace kest::test;

namespace {

/// A recording of this many packets, in fragments of four.
MadeRecording recordingOf(int packets)
{
    QList<QList<quint32>> fragments;
    for (int packet = 0; packet < packets; ++packet) {
        if (packet % 4 == 0)
            fragments.append(QList<quint32>());
        fragments.last().append(quint32(10 + packet % 7));
    }
    return makeRecording(fragments);
}

std::optional<FileFailure> finish(const MadeRecording &made, std::optional<qint64> samples, QByteArray *finished)
{
    const auto from = fileOf(made.bytes);
    const auto to = fileOf({});
    const auto failure = copyAsFinished(from->handle(), to->handle(), samples);
    to->seek(0);
    *finished = to->readAll();
    return failure;
}

Bytes asBytes(const QByteArray &bytes)
{
    return {reinterpret_cast<const uchar *>(bytes.constData()), size_t(bytes.size())};
}

/// The fields of a box deep in the movie, past its version and flags.
FieldReader fieldsOf(const QByteArray &file, std::initializer_list<const char *> path)
{
    Bytes bytes = asBytes(file);
    for (const char *name : path)
        bytes = findBox(bytes, qFromBigEndian<quint32>(name)).value_or(Bytes());
    FieldReader fields(bytes);
    fields.skip(4);
    return fields;
}

quint8 versionOf(const QByteArray &file, std::initializer_list<const char *> path)
{
    Bytes bytes = asBytes(file);
    for (const char *name : path)
        bytes = findBox(bytes, qFromBigEndian<quint32>(name)).value_or(Bytes());
    return bytes.empty() ? quint8(255) : bytes[0];
}

SoundTrack soundTrack()
{
    return {44100, 0, QByteArray::fromHex("0000000c65736473deadbeef")};
}

} // namespace

/// The ordinary file: its length to the sample, its tables, and what is refused.
class FinishedWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lastsExactlyTheSamplesAskedFor_data();
    void lastsExactlyTheSamplesAskedFor();
    void withoutACountItLastsWhatThePacketsHold();
    void mediaFollowsTheHeaderAtOnce();
    void tooShortRecordingIsRefused();
    void fullDiskIsTold();
    void diskThatBreaksAfterSomePiecesIsTold_data();
    void diskThatBreaksAfterSomePiecesIsTold();
    void unreadableRecordingIsTold();
    void offsetsBeyondFourGigabytesAreWide();
    void timesBeyondThirtyTwoBitsAreWide();
};

void FinishedWriterTest::lastsExactlyTheSamplesAskedFor_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("packets");
    const QList<std::pair<int, int>> rows = {{1, 2}, {1023, 2}, {1024, 2}, {1025, 3}, {2048, 3}, {43 * 1024, 44}};
    for (const auto &[samples, packets] : rows)
        QTest::addRow("%d samples", samples) << samples << packets;
}

void FinishedWriterTest::lastsExactlyTheSamplesAskedFor()
{
    QFETCH(int, samples);
    QFETCH(int, packets);
    const MadeRecording made = recordingOf(packets + 1); // one more than it takes, which is left out
    QByteArray file;
    QVERIFY(!finish(made, samples, &file));
    FieldReader edits = fieldsOf(file, {"moov", "trak", "edts", "elst"});
    QCOMPARE(edits.read<quint32>(), 1U);
    QCOMPARE(edits.read<quint32>(), quint32(samples));
    QCOMPARE(edits.read<quint32>(), 1024U);
    FieldReader durations = fieldsOf(file, {"moov", "trak", "mdia", "minf", "stbl", "stts"});
    int counted = 0;
    int lasting = 0;
    for (quint32 rows = durations.read<quint32>(); rows > 0; --rows) {
        const auto count = int(durations.read<quint32>());
        counted += count;
        lasting += count * int(durations.read<quint32>());
    }
    QCOMPARE(counted, packets);
    QCOMPARE(lasting, samples + 1024);
    const auto media = std::accumulate(made.sizes.begin(), made.sizes.begin() + packets, 0);
    QVERIFY(file.endsWith("mdat" + made.media.first(media)));
}

void FinishedWriterTest::withoutACountItLastsWhatThePacketsHold()
{
    QByteArray file;
    QVERIFY(!finish(recordingOf(9), std::nullopt, &file));
    FieldReader edits = fieldsOf(file, {"moov", "trak", "edts", "elst"});
    edits.skip(4);
    QCOMPARE(edits.read<quint32>(), 8U * 1024);
}

void FinishedWriterTest::mediaFollowsTheHeaderAtOnce()
{
    const MadeRecording made = recordingOf(100);
    QByteArray file;
    QVERIFY(!finish(made, std::nullopt, &file));
    FieldReader offsets = fieldsOf(file, {"moov", "trak", "mdia", "minf", "stbl", "stco"});
    QCOMPARE(offsets.read<quint32>(), 3U); // 43, 43 and 14 packets
    qsizetype expected = file.size() - made.media.size();
    for (qsizetype packet = 0; packet < made.sizes.size(); ++packet) {
        if (packet % 43 == 0)
            QCOMPARE(qsizetype(offsets.read<quint32>()), expected);
        expected += made.sizes[packet];
    }
    QVERIFY(offsets.isGood() && offsets.rest().empty());
}

void FinishedWriterTest::tooShortRecordingIsRefused()
{
    QByteArray file;
    QVERIFY(finish(recordingOf(3), 2049, &file));
    QVERIFY(!finish(recordingOf(3), 2048, &file));
    QVERIFY(finish(recordingOf(3), 0, &file));
    QVERIFY(finish(recordingOf(3), std::numeric_limits<qint64>::max() / 2, &file));
    QVERIFY(finish(recordingOf(1), std::nullopt, &file)); // the run-up alone
    QVERIFY(finish(recordingOf(0), std::nullopt, &file));
    QVERIFY(finish({}, std::nullopt, &file));
}

void FinishedWriterTest::fullDiskIsTold()
{
    const auto from = fileOf(recordingOf(8).bytes);
    const int full = open("/dev/full", O_WRONLY);
    const auto failure = copyAsFinished(from->handle(), full, std::nullopt);
    close(full);
    QVERIFY(failure && failure->isDiskFull());
}

void FinishedWriterTest::diskThatBreaksAfterSomePiecesIsTold_data()
{
    QTest::addColumn<int>("piece");
    for (const int piece : {1, 2, 3})
        QTest::addRow("piece %d", piece) << piece;
}

void FinishedWriterTest::diskThatBreaksAfterSomePiecesIsTold()
{
    QFETCH(int, piece);
    const QList<quint32> threeHundredKilobytes = {100'000, 100'000, 100'000};
    const auto from = fileOf(makeRecording(QList<QList<quint32>>(8, threeHundredKilobytes)).bytes);
    const QTemporaryDir folder;
    QFile to(folder.filePath(QStringLiteral("to.m4a"))); // with a name, by which its calls are known
    QVERIFY(to.open(QIODevice::ReadWrite));
    const FailingCalls broken(FileCall::WriteAt, "to.m4a", piece, EIO);
    const auto failure = copyAsFinished(from->handle(), to.handle(), std::nullopt);
    QCOMPARE(broken.failures(), 1);
    QVERIFY(failure);
    QCOMPARE(failure->errorNumber, EIO);
}

void FinishedWriterTest::unreadableRecordingIsTold()
{
    const int folder = open(QDir::tempPath().toLocal8Bit().constData(), O_RDONLY | O_DIRECTORY);
    const auto to = fileOf({});
    const auto failure = copyAsFinished(folder, to->handle(), std::nullopt);
    close(folder);
    QVERIFY(failure);
    QCOMPARE(failure->errorNumber, EISDIR);
    QCOMPARE(to->size(), 0);
}

void FinishedWriterTest::offsetsBeyondFourGigabytesAreWide()
{
    const std::vector<quint32> sizes(50, 100'000'000);
    const QByteArray header = progressiveHeader(soundTrack(), 49 * 1024, sizes);
    FieldReader offsets = fieldsOf(header, {"moov", "trak", "mdia", "minf", "stbl", "co64"});
    QCOMPARE(offsets.read<quint32>(), 2U);
    QCOMPARE(offsets.read<quint64>(), quint64(header.size()));
    QCOMPARE(offsets.read<quint64>(), quint64(header.size()) + 43 * Q_UINT64_C(100'000'000));
    const auto head = readBoxHeader(asBytes(header).last(16), 0);
    QVERIFY(head);
    QCOMPARE(head->type, boxType("mdat"));
    QCOMPARE(head->length, 16U);
    QCOMPARE(head->size, 16 + Q_UINT64_C(5'000'000'000));
}

void FinishedWriterTest::timesBeyondThirtyTwoBitsAreWide()
{
    const qint64 samples = (Q_INT64_C(1) << 32) + 5; // 27 hours
    const std::vector<quint32> sizes(size_t(packetsFor(samples)), 1);
    const QByteArray header = progressiveHeader(soundTrack(), samples, sizes);
    FieldReader edits = fieldsOf(header, {"moov", "trak", "edts", "elst"});
    QCOMPARE(edits.read<quint32>(), 1U);
    QCOMPARE(edits.read<quint64>(), quint64(samples));
    QCOMPARE(edits.read<quint64>(), Q_UINT64_C(1024));
    QCOMPARE(int(versionOf(header, {"moov", "mvhd"})), 1);
    QCOMPARE(int(versionOf(header, {"moov", "trak", "tkhd"})), 1);
    QCOMPARE(int(versionOf(header, {"moov", "trak", "mdia", "mdhd"})), 1);
    FieldReader media = fieldsOf(header, {"moov", "trak", "mdia", "mdhd"});
    media.skip(16);
    QCOMPARE(media.read<quint32>(), 44100U);
    QCOMPARE(media.read<quint64>(), quint64(samples) + 1024);
}

QTEST_GUILESS_MAIN(FinishedWriterTest)
#include "tst_finishedwriter.moc"
