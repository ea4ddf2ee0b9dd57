#include "RecorderBench.h"

#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/RecordingFinisher.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <cmath>
#include <random>
#include <vector>

using namespace kest;
using namespace kest::test;

/// What finishing makes of real recordings, by the word of independent readers.
class FinishingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void independentReadersAgree_data();
    void independentReadersAgree();
    void packetsAreThoseOfTheRecording();
    void recordingCutOffIsFinishedToItsLastPacket();
    void failedFinishLeavesTheRecordingAsItWas();
    void anHourOfSpeechHasAtMost40Megabytes_data();
    void anHourOfSpeechHasAtMost40Megabytes();

private:
    void record(qint64 samples);
    void record(const std::vector<float> &sound);
    std::vector<float> spoken(const QString &words) const;
    std::optional<FileFailure> finish(std::optional<qint64> samples) const;
    void verifyWithReaders(qint64 samples) const;
    QByteArray packets() const;
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    FileURL m_file;
};

void FinishingTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = FileURL::fromPath(m_folder->filePath(QStringLiteral("message.m4a")));
}

/// A rising tone, as the recorder writes it.
void FinishingTest::record(qint64 samples)
{
    std::vector<float> tone(static_cast<size_t>(samples));
    for (size_t i = 0; i < tone.size(); ++i)
        tone[i] = 0.4F * float(std::sin(double(i) * (0.02 + double(i) * 1e-7)));
    record(tone);
}

void FinishingTest::record(const std::vector<float> &sound)
{
    QString problem;
    FileFailure failure;
    EncoderPlugin *plugin = EncoderLoader().load(&problem);
    QVERIFY2(plugin, qUtf8Printable(problem));
    const auto file = RecordingFile::create(m_file, &failure);
    QVERIFY2(file, qUtf8Printable(failure.detail));
    const auto writer = plugin->createWriter(file->descriptor(), {}, &failure);
    QVERIFY2(writer, qUtf8Printable(failure.detail));
    QVERIFY(!writer->write(sound.data(), qsizetype(sound.size())));
    QVERIFY(!writer->close());
}

std::optional<FileFailure> FinishingTest::finish(std::optional<qint64> samples) const
{
    FileFailure failure;
    auto file = RecordingFile::open(m_file, &failure);
    return file ? finishRecording(*file, samples) : failure;
}

void FinishingTest::verifyWithReaders(qint64 samples) const
{
    QProcess check;
    check.start(QStringLiteral("/usr/bin/python3"),
                {qEnvironmentVariable("KEST_SOURCE_DIR") + QStringLiteral("/tests/integration/sound/check_m4a.py"),
                 m_file.path(), QString::number(samples)});
    QVERIFY(check.waitForFinished(120'000));
    QVERIFY2(check.exitCode() == 0, (check.readAllStandardOutput() + check.readAllStandardError()).constData());
}

/// A checksum over all packets, the run-up included.
QByteArray FinishingTest::packets() const
{
    const QString arguments = QStringLiteral("-v error -ignore_editlist 1 -i %1 -map 0 -c copy -f streamhash -");
    return outputOf(QStringLiteral("ffmpeg"), arguments.arg(m_file.path()).split(u' '));
}

QByteArray FinishingTest::content() const
{
    QFile file(m_file.path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void FinishingTest::independentReadersAgree_data()
{
    QTest::addColumn<int>("samples");
    for (const int samples : {1, 2, 1023, 1024, 1025, 2048, 4410, 43 * 1024, 100'000, 30 * 44100})
        QTest::addRow("%d samples", samples) << samples;
}

void FinishingTest::independentReadersAgree()
{
    QFETCH(int, samples);
    record(samples);
    QVERIFY(!finish(samples));
    verifyWithReaders(samples);
}

void FinishingTest::packetsAreThoseOfTheRecording()
{
    record(123'456);
    const QByteArray before = packets();
    QVERIFY(before.contains("SHA256="));
    QVERIFY(!finish(123'456));
    QCOMPARE(packets(), before);
}

void FinishingTest::recordingCutOffIsFinishedToItsLastPacket()
{
    record(100'000);
    QVERIFY(QFile::resize(m_file.path(), content().size() / 2));
    QVERIFY(!finish(std::nullopt));
    const qint64 samples = probedSamples(m_file);
    QCOMPARE(samples % 1024, 0);
    QVERIFY2(samples > 40'000 && samples < 60'000, QByteArray::number(samples).constData());
    verifyWithReaders(samples);
}

void FinishingTest::failedFinishLeavesTheRecordingAsItWas()
{
    record(20'000);
    const QByteArray before = content();
    QVERIFY(finish(40'000));
    QCOMPARE(content(), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("message.m4a")});
}

std::vector<float> FinishingTest::spoken(const QString &words) const
{
    const QString own = m_folder->filePath(QStringLiteral("spoken.wav")); // 22050 Hz
    const QString file = m_folder->filePath(QStringLiteral("44100.wav"));
    outputOf(QStringLiteral("espeak-ng"), {QStringLiteral("-v"), QStringLiteral("en"), QStringLiteral("-w"), own, words});
    outputOf(QStringLiteral("ffmpeg"), QStringLiteral("-v error -y -i %1 -ar 44100 %2").arg(own, file).split(u' '));
    return decoded(FileURL::fromPath(file));
}

void FinishingTest::anHourOfSpeechHasAtMost40Megabytes_data()
{
    QTest::addColumn<bool>("paused");
    QTest::addColumn<float>("noise");
    QTest::newRow("fluent") << false << 0.0F;
    QTest::newRow("beside a fan") << false << 0.02F;
    // As a microphone that mutes itself delivers it: the encoder saves in the pauses, and spends it on the words.
    QTest::newRow("word for word") << true << 0.0F;
    QTest::newRow("noise alone") << false << 1.0F;
}

void FinishingTest::anHourOfSpeechHasAtMost40Megabytes()
{
    QFETCH(bool, paused);
    QFETCH(float, noise);
    const QStringList words = QStringLiteral("Please send the papers on Thursday, she asked, and six other things.").split(u' ');
    std::vector<float> once;
    for (const QString &part : paused ? words : QStringList{words.join(u' ')}) {
        const std::vector<float> sound = spoken(part);
        once.insert(once.end(), sound.begin(), sound.end());
    }
    std::vector<float> sound;
    while (sound.size() < 60 * 44100)
        sound.insert(sound.end(), once.begin(), once.end());
    std::minstd_rand generator;
    std::uniform_real_distribution<float> random(-noise, noise);
    for (float &sample : sound)
        sample += random(generator);
    record(sound);
    QVERIFY(!finish(qint64(sound.size())));
    const double seconds = double(sound.size()) / 44100;
    const double megabytesAnHour = double(QFile(m_file.path()).size()) / seconds * 3600 / 1e6;
    QVERIFY2(megabytesAnHour <= 40, QByteArray::number(megabytesAnHour).constData());
    QVERIFY2(megabytesAnHour >= 20, QByteArray::number(megabytesAnHour).constData()); // less would not be heard well
}

QTEST_GUILESS_MAIN(FinishingTest)
#include "tst_finishing.moc"
