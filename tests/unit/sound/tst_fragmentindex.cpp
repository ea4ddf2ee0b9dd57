#include "MadeRecording.h"

#include "platform/linux/sound/boxes/FragmentIndex.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <random>
#include <unistd.h>

using namespace kest;
using namespace kest::test;

namespace {

const QList<QList<quint32>> threeFragments = {{40, 30, 20, 10}, {5, 6, 7, 8}, {50, 60}};

std::optional<FragmentIndex> indexOf(const QByteArray &bytes, FileFailure *failure = nullptr)
{
    const auto file = fileOf(bytes);
    FileWindow window(file->handle());
    FileFailure ignored;
    return FragmentIndex::read(window, failure ? failure : &ignored);
}

/// The packets' bytes, where the index says that they are.
QByteArray mediaOf(const QByteArray &bytes, const FragmentIndex &index)
{
    QByteArray media;
    for (const FragmentIndex::Run &run : index.runs())
        media.append(bytes.mid(qsizetype(run.position), qsizetype(run.length)));
    return media;
}

QList<quint32> sizesIn(const std::optional<FragmentIndex> &index)
{
    return index ? QList<quint32>(index->packetSizes().begin(), index->packetSizes().end()) : QList<quint32>();
}

/// What holds whatever the file was.
bool isSound(const FragmentIndex &index, qsizetype fileSize)
{
    quint64 end = 0;
    quint64 media = 0;
    for (const FragmentIndex::Run &run : index.runs()) {
        if (run.position < end || run.length == 0)
            return false;
        end = run.position + run.length;
        media += run.length;
    }
    quint64 packets = 0;
    for (const quint32 size : index.packetSizes())
        packets += size;
    return end <= quint64(fileSize) && packets == media;
}

} // namespace

/// Finding the packets in recordings that are whole, cut off, damaged or made up.
class FragmentIndexTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsEveryPacket_data();
    void findsEveryPacket();
    void recordingCutAtAnyByteKeepsItsWholePackets();
    void damagedFragmentIsSteppedOver_data();
    void damagedFragmentIsSteppedOver();
    void zerosAtTheEndAreLeftOut();
    void anotherKindOfTrackIsRefused_data();
    void anotherKindOfTrackIsRefused();
    void sizesThatLieAreNotBelieved_data();
    void sizesThatLieAreNotBelieved();
    void packetsThatAreElsewhereAreNotTaken();
    void scrambledRecordingsAreReadWithoutHarm();
    void unreadableFileTellsItsError();
};

void FragmentIndexTest::findsEveryPacket_data()
{
    QTest::addColumn<QList<QList<quint32>>>("fragments");
    QTest::addColumn<Form>("form");
    QTest::newRow("sizes in each run") << threeFragments << Form{};
    QTest::newRow("one size a fragment") << QList<QList<quint32>>{{9, 9, 9}, {7, 7}} << Form{Form::Sizes::InFragment};
    QTest::newRow("one size for all") << QList<QList<quint32>>{{9, 9, 9}, {9}} << Form{Form::Sizes::InHead};
    QTest::newRow("64-bit media size") << threeFragments << Form{.wideMedia = true};
    QTest::newRow("media to the end of the file") << QList<QList<quint32>>{{9, 8, 7}} << Form{.openMedia = true};
    QTest::newRow("more than the window holds") << QList<QList<quint32>>{{400'000, 300'000}, {600'000}} << Form{};
    QTest::newRow("no fragment yet") << QList<QList<quint32>>{} << Form{};
}

void FragmentIndexTest::findsEveryPacket()
{
    QFETCH(QList<QList<quint32>>, fragments);
    QFETCH(Form, form);
    const MadeRecording made = makeRecording(fragments, form);
    const auto index = indexOf(made.bytes);
    QVERIFY(index);
    QCOMPARE(sizesIn(index), made.sizes);
    QCOMPARE(mediaOf(made.bytes, *index), made.media);
    QCOMPARE(index->track().sampleRate, 44100U);
    QVERIFY(index->track().decoderConfig.mid(4).startsWith("esds"));
}

void FragmentIndexTest::recordingCutAtAnyByteKeepsItsWholePackets()
{
    const MadeRecording made = makeRecording(threeFragments);
    for (qsizetype length = 0; length <= made.bytes.size(); ++length) {
        const auto index = indexOf(made.bytes.first(length));
        QCOMPARE(index.has_value(), length >= made.headSize);
        const auto whole = std::count_if(made.ends.begin(), made.ends.end(), [&](auto end) { return end <= length; });
        QCOMPARE(sizesIn(index), made.sizes.first(whole));
        QVERIFY(!index || made.media.startsWith(mediaOf(made.bytes, *index)));
    }
}

void FragmentIndexTest::damagedFragmentIsSteppedOver_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("length");
    QTest::newRow("its size") << 0 << 4;
    QTest::newRow("its type") << 4 << 4;
    QTest::newRow("its table") << 40 << 40;
    QTest::newRow("all of it") << 0 << 100;
}

void FragmentIndexTest::damagedFragmentIsSteppedOver()
{
    QFETCH(int, from);
    QFETCH(int, length);
    const MadeRecording made = makeRecording(threeFragments);
    for (const char filler : {'\0', '\xff', 'x'}) {
        QByteArray bytes = made.bytes;
        bytes.replace(made.fragments[1] + from, length, QByteArray(length, filler));
        const auto index = indexOf(bytes);
        QCOMPARE(sizesIn(index), threeFragments[0] + threeFragments[2]);
        QVERIFY(isSound(*index, bytes.size()));
    }
}

void FragmentIndexTest::zerosAtTheEndAreLeftOut()
{
    const MadeRecording made = makeRecording(threeFragments);
    QCOMPARE(sizesIn(indexOf(made.bytes + QByteArray(100'000, '\0'))), made.sizes);
}

void FragmentIndexTest::anotherKindOfTrackIsRefused_data()
{
    QTest::addColumn<Form>("form");
    QTest::newRow("stereo") << Form{.config = 0x1210};
    QTest::newRow("high efficiency") << Form{.config = 0x2a08};
    QTest::newRow("960 samples a packet") << Form{.config = 0x120c};
    QTest::newRow("two tracks") << Form{.tracks = 2};
    QTest::newRow("no track") << Form{.tracks = 0};
}

void FragmentIndexTest::anotherKindOfTrackIsRefused()
{
    QFETCH(Form, form);
    FileFailure failure;
    QVERIFY(!indexOf(makeRecording(threeFragments, form).bytes, &failure));
    QCOMPARE(failure.errorNumber, 0);
    QVERIFY(!failure.detail.isEmpty());
}

void FragmentIndexTest::sizesThatLieAreNotBelieved_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("smaller than its header") << QByteArray::fromHex("00000007");
    QTest::newRow("beyond the end") << QByteArray::fromHex("7fffffff");
    QTest::newRow("64 bits, beyond any number") << QByteArray::fromHex("000000016d646174ffffffffffffffff");
    QTest::newRow("64 bits, smaller than its header") << QByteArray::fromHex("000000016d6461740000000000000008");
    QTest::newRow("to the end of the file") << QByteArray::fromHex("00000000");
}

void FragmentIndexTest::sizesThatLieAreNotBelieved()
{
    QFETCH(QByteArray, header);
    const MadeRecording made = makeRecording(threeFragments);
    const auto media = made.bytes.indexOf("mdat", made.fragments[1]) - 4;
    QByteArray bytes = made.bytes;
    bytes.replace(media, header.size(), header);
    // The fragment and its media disagree, so it is dropped; the next one is found.
    QCOMPARE(sizesIn(indexOf(bytes)), threeFragments[0] + threeFragments[2]);
}

void FragmentIndexTest::packetsThatAreElsewhereAreNotTaken()
{
    // All would point at the same bytes: a small file must not become a large one.
    for (const qint32 misplaced : {-200, -8, 4, 100})
        QVERIFY(sizesIn(indexOf(makeRecording(threeFragments, {.misplaced = misplaced}).bytes)).isEmpty());
}

void FragmentIndexTest::scrambledRecordingsAreReadWithoutHarm()
{
    const MadeRecording made = makeRecording(threeFragments);
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes = made.bytes.first(qsizetype(random() % quint32(made.bytes.size() + 1)));
        for (quint32 change = random() % 8; change > 0 && !bytes.isEmpty(); --change)
            bytes[qsizetype(random() % quint32(bytes.size()))] = char(random());
        const auto index = indexOf(bytes);
        QVERIFY2(!index || isSound(*index, bytes.size()), qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void FragmentIndexTest::unreadableFileTellsItsError()
{
    const int folder = open(QDir::tempPath().toLocal8Bit().constData(), O_RDONLY | O_DIRECTORY);
    FileWindow window(folder);
    FileFailure failure;
    QVERIFY(!FragmentIndex::read(window, &failure));
    QCOMPARE(failure.errorNumber, EISDIR);
    close(folder);
}

QTEST_GUILESS_MAIN(FragmentIndexTest)
#include "tst_fragmentindex.moc"
