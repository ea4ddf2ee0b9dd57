#include "platform/linux/sound/boxes/ProgressiveHeader.h"

#include "platform/linux/sound/boxes/PacketTables.h"

namespace kest {

namespace {

constexpr quint64 widest32 = 0xffffffff;
constexpr quint32 fixedOne = 0x10000;     // 1.0 in 16.16
constexpr quint16 fullVolume = 0x100;     // 1.0 in 8.8
constexpr quint32 trackNumber = 1;
constexpr quint16 undetermined = 0x55c4;  // the language "und", three times five bits (ISO/IEC 14496-12, 8.4.2)
constexpr quint64 smallMediaHead = 8;
constexpr quint64 largeMediaHead = 16;
constexpr qsizetype bytesBesideTables = 1024;

/// Writes the boxes from the outermost to the tables, each in its own function.
class HeaderWriter
{
public:
    HeaderWriter(const SoundTrack &track, qint64 sampleCount, std::span<const quint32> packetSizes);

    QByteArray write();

private:
    void fileType();
    void movie();
    void movieHeader();
    void track();
    void trackHeader();
    void editList();
    void media();
    void mediaInformation();
    void mediaHead();
    void times();
    void matrix();

    const quint32 m_sampleRate;
    const quint64 m_samples;      // what is heard
    const quint64 m_mediaSamples; // and the run-up
    const bool m_wideTimes;
    PacketTables m_tables;
    bool m_wideOffsets = false;
    BoxWriter m_out;
};

HeaderWriter::HeaderWriter(const SoundTrack &track, qint64 sampleCount, std::span<const quint32> packetSizes)
    : m_sampleRate(track.sampleRate), m_samples(quint64(sampleCount)),
      m_mediaSamples(m_samples + SoundTrack::primingSamples), m_wideTimes(m_mediaSamples > widest32),
      m_tables(track, m_mediaSamples, packetSizes)
{
    const qsizetype most = bytesBesideTables + qsizetype(packetSizes.size()) * 5; // sizes, and offsets now and then
    m_wideOffsets = quint64(most) + m_tables.mediaBytes() > widest32;
    m_out.reserve(most);
}

QByteArray HeaderWriter::write()
{
    fileType();
    movie();
    mediaHead();
    m_tables.setMediaPosition(&m_out, quint64(m_out.bytes().size()));
    return m_out.bytes();
}

void HeaderWriter::fileType()
{
    m_out.box("ftyp", [&] {
        m_out.put(QByteArray("M4A "));
        m_out.put(quint32(0x200));
        m_out.put(QByteArray("M4A isomiso2"));
    });
}

void HeaderWriter::movie()
{
    m_out.box("moov", [&] {
        movieHeader();
        track();
    });
}

void HeaderWriter::movieHeader()
{
    m_out.fullBox("mvhd", m_wideTimes, 0, [&] {
        times();
        m_out.put(m_sampleRate);
        m_out.putSized(m_samples, m_wideTimes);
        m_out.put(fixedOne); // speed
        m_out.put(fullVolume);
        m_out.putZeros(10);
        matrix();
        m_out.putZeros(24);
        m_out.put(trackNumber + 1); // the next free number
    });
}

void HeaderWriter::track()
{
    m_out.box("trak", [&] {
        trackHeader();
        m_out.box("edts", [&] { editList(); });
        media();
    });
}

void HeaderWriter::trackHeader()
{
    m_out.fullBox("tkhd", m_wideTimes, 3, [&] { // 3: enabled, and in the movie
        times();
        m_out.put(trackNumber);
        m_out.putZeros(4);
        m_out.putSized(m_samples, m_wideTimes);
        m_out.putZeros(10);    // reserved, layer
        m_out.put(quint16(1)); // sound tracks are alternatives of each other
        m_out.put(fullVolume);
        m_out.putZeros(2);
        matrix();
        m_out.putZeros(8); // width, height
    });
}

/// One edit: all that was recorded, from behind the encoder's run-up.
void HeaderWriter::editList()
{
    m_out.fullBox("elst", m_wideTimes, 0, [&] {
        m_out.put(quint32(1));
        m_out.putSized(m_samples, m_wideTimes);
        m_out.putSized(SoundTrack::primingSamples, m_wideTimes);
        m_out.put(fixedOne); // speed
    });
}

void HeaderWriter::media()
{
    m_out.box("mdia", [&] {
        m_out.fullBox("mdhd", m_wideTimes, 0, [&] {
            times();
            m_out.put(m_sampleRate);
            m_out.putSized(m_mediaSamples, m_wideTimes);
            m_out.put(undetermined);
            m_out.putZeros(2);
        });
        m_out.fullBox("hdlr", 0, 0, [&] {
            m_out.putZeros(4);
            m_out.put(QByteArray("soun"));
            m_out.putZeros(12);
            m_out.put(QByteArray("SoundHandler\0", 13));
        });
        mediaInformation();
    });
}

void HeaderWriter::mediaInformation()
{
    m_out.box("minf", [&] {
        m_out.fullBox("smhd", 0, 0, [&] { m_out.putZeros(4); }); // balance: the middle
        m_out.box("dinf", [&] {
            m_out.fullBox("dref", 0, 0, [&] {
                m_out.put(quint32(1));
                m_out.fullBox("url ", 0, 1, [] {}); // 1: the media is in this file
            });
        });
        m_tables.write(&m_out, m_wideOffsets);
    });
}

void HeaderWriter::mediaHead()
{
    const bool large = m_tables.mediaBytes() + smallMediaHead > widest32;
    m_out.put(quint32(large ? 1 : m_tables.mediaBytes() + smallMediaHead));
    m_out.put(QByteArray("mdat"));
    if (large)
        m_out.put(quint64(m_tables.mediaBytes() + largeMediaHead));
}

/// Of creation and of change: 0, unknown. The file system knows them.
void HeaderWriter::times()
{
    m_out.putZeros(m_wideTimes ? 16 : 8);
}

/// The one that changes nothing.
void HeaderWriter::matrix()
{
    for (const quint32 number : {fixedOne, 0U, 0U, 0U, fixedOne, 0U, 0U, 0U, 0x40000000U})
        m_out.put(number);
}

} // namespace

QByteArray progressiveHeader(const SoundTrack &track, qint64 sampleCount, std::span<const quint32> packetSizes)
{
    return HeaderWriter(track, sampleCount, packetSizes).write();
}

qint64 packetsFor(qint64 sampleCount)
{
    return (SoundTrack::primingSamples + sampleCount + SoundTrack::packetSamples - 1) / SoundTrack::packetSamples;
}

} // namespace kest
