#pragma once

#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/PulseSound.h"

#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace kest::test {

/// One recorder over the private sound server, with spies on its news.
class RecorderBench
{
public:
    explicit RecorderBench(std::shared_ptr<EncoderLoader> encoders = nullptr, const QByteArray &folder = {});
    explicit RecorderBench(const PulseSoundOptions &options, const QByteArray &folder = {});
    ~RecorderBench();

    /// What the window asks for.
    static AudioRecorderSettings settings();

    /// Makes a recorder for `name` in the folder; the last one goes.
    AudioFileRecorder &make(const char *name = "message.m4a");

    /// Waits for the connection to the server.
    bool waitUntilConnected();

    /// Makes a recorder and has it record until `seconds` are captured.
    bool startRecording(double seconds = 0);

    /// The same, then stops and waits until it is finished.
    bool recordFor(double seconds);
    bool stopRecording();
    bool waitForCapture(double seconds, int milliseconds = 60'000);
    bool waitUntilFinished(int milliseconds = 60'000);

    PulseSound sound;
    FolderURL folder;
    std::unique_ptr<AudioFileRecorder> recorder;
    std::unique_ptr<QSignalSpy> started;
    std::unique_ptr<QSignalSpy> trouble;
    std::unique_ptr<QSignalSpy> finished;

private:
    QTemporaryDir m_temporary;
};

/// Standard output of a program; fails the test when it fails.
QByteArray outputOf(const QString &program, const QStringList &arguments);

/// One value that ffprobe reports of a file's audio stream or format.
QByteArray probe(const FileURL &file, const QString &entry);

/// The length in samples that ffprobe reports.
qint64 probedSamples(const FileURL &file);

/// The types of the file's outermost boxes, in order.
QList<QByteArray> outermostBoxes(const FileURL &file);

/// The samples that ffmpeg decodes, mono, full scale -1 to 1.
std::vector<float> decoded(const FileURL &file);

} // namespace kest::test
