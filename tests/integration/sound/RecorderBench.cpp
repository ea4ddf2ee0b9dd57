#include "RecorderBench.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <QtEndian>

#include <cstring>

namespace kest::test {

namespace {

PulseSoundOptions with(std::shared_ptr<EncoderLoader> encoders)
{
    PulseSoundOptions options;
    options.encoders = std::move(encoders);
    return options;
}

} // namespace

RecorderBench::RecorderBench(std::shared_ptr<EncoderLoader> encoders, const QByteArray &recordings)
    : RecorderBench(with(std::move(encoders)), recordings)
{
}

RecorderBench::RecorderBench(const PulseSoundOptions &options, const QByteArray &recordings)
    : sound(makePulseSound(options))
{
    folder = recordings.isEmpty() ? FolderURL::fromPath(m_temporary.path()) : FolderURL::fromNativePath(recordings);
}

RecorderBench::~RecorderBench()
{
    recorder.reset();
    if (sound.recorderFactory)
        sound.recorderFactory->waitForFinished(60'000);
}

AudioRecorderSettings RecorderBench::settings()
{
    return {0x61616320, 64, 1, 44100.0F};
}

AudioFileRecorder &RecorderBench::make(const char *name)
{
    recorder = sound.recorderFactory->create(folder.appendingPathComponent(QString::fromUtf8(name)), settings(), nullptr);
    recorder->setMeteringEnabled(true);
    started = std::make_unique<QSignalSpy>(recorder.get(), &AudioFileRecorder::captureStarted);
    trouble = std::make_unique<QSignalSpy>(recorder.get(), &AudioFileRecorder::troubleOccurred);
    finished = std::make_unique<QSignalSpy>(recorder.get(), &AudioFileRecorder::finished);
    return *recorder;
}

bool RecorderBench::waitUntilConnected()
{
    const AudioPropertyAddress defaultInput = {0x64496e20, 0x676c6f62, 0};
    return QTest::qWaitFor([&] {
        quint32 device = 0;
        return sound.audioHardware->propertyData(1, defaultInput, &device) == 0;
    }, 60'000);
}

bool RecorderBench::startRecording(double seconds)
{
    make();
    return recorder->prepareToRecord() && recorder->record() && waitForCapture(seconds);
}

bool RecorderBench::recordFor(double seconds)
{
    return startRecording(seconds) && stopRecording();
}

bool RecorderBench::stopRecording()
{
    recorder->stop();
    return waitUntilFinished() && finished->first().first().toBool();
}

bool RecorderBench::waitForCapture(double seconds, int milliseconds)
{
    return QTest::qWaitFor([&] { return recorder->currentTime() >= seconds; }, milliseconds);
}

bool RecorderBench::waitUntilFinished(int milliseconds)
{
    return QTest::qWaitFor([&] { return !finished->isEmpty(); }, milliseconds);
}

QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60'000);
    if (!ended || process.exitCode() != 0)
        QTest::qFail((program.toLocal8Bit() + ": " + process.readAllStandardError()).constData(), __FILE__, __LINE__);
    return process.readAllStandardOutput();
}

QByteArray probe(const FileURL &file, const QString &entry)
{
    return outputOf(QStringLiteral("ffprobe"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"), entry,
                     QStringLiteral("-of"), QStringLiteral("default=nk=1:nw=1"), file.path()})
        .trimmed();
}

qint64 probedSamples(const FileURL &file)
{
    return probe(file, QStringLiteral("stream=duration_ts")).toLongLong();
}

QList<QByteArray> outermostBoxes(const FileURL &file)
{
    QFile opened(file.path());
    QList<QByteArray> types;
    if (!opened.open(QIODevice::ReadOnly))
        return types;
    for (;;) {
        const QByteArray header = opened.read(8);
        if (header.size() < 8)
            return types;
        types.append(header.mid(4));
        opened.seek(opened.pos() - 8 + qFromBigEndian<quint32>(header.constData()));
    }
}

std::vector<float> decoded(const FileURL &file)
{
    const QByteArray raw = outputOf(QStringLiteral("ffmpeg"),
                                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), file.path(),
                                     QStringLiteral("-f"), QStringLiteral("f32le"), QStringLiteral("-")});
    std::vector<float> samples(size_t(raw.size()) / sizeof(float));
    std::memcpy(samples.data(), raw.constData(), samples.size() * sizeof(float));
    return samples;
}

} // namespace kest::test
