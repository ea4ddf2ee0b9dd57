// Records as the program does, one command a line on standard input, and says on standard output what happens, each line with
// the monotonic clock's nanoseconds in front:
//
//     recover FOLDER      ->  recovered COUNT      what earlier runs left is finished
//     record PATH         ->  recording, then started
//     pause  resume       ->  paused, resumed
//     stop                ->  stopped, then finished 0|1 PATH
//     rename FROM TO      ->  renamed 0|1          tab-separated; as a reply does for the sender's name
//     block MILLISECONDS  ->  unblocked            the main thread does nothing else for so long
//     end
//
// `trouble NUMBER DETAIL` comes by itself. The file named by the first argument holds two numbers of 64 bits, as this program
// saw them when it last ran, a millisecond ago unless the machine is busy: how many samples the running recording has
// captured, and how many were spoken, whether captured or still on their way.

#include "platform/linux/desktop/PosixFolderContents.h"
#include "platform/linux/sound/MonotonicTime.h"
#include "platform/linux/sound/PulseSound.h"

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>

#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <mutex>
#include <thread>

using namespace kest;

namespace {

constexpr AudioRecorderSettings settings = {0x61616320, 64, 1, 44100.0F};
constexpr int plenty = 30'000; // milliseconds

void say(const QByteArray &what)
{
    std::printf("%lld %s\n", monotonicNow(), what.constData());
    std::fflush(stdout);
}

/// Keeps the numbers of captured and of spoken samples in a file that outlives the process.
class Counter
{
    struct Shared {
        std::atomic<qint64> captured, spoken;
    };

public:
    explicit Counter(const char *path)
    {
        const int file = open(path, O_RDWR | O_CLOEXEC);
        m_shared = static_cast<Shared *>(mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
        if (m_shared == MAP_FAILED)
            qFatal("%s cannot be mapped", path);
        m_thread = std::jthread([this](const std::stop_token &ended) { follow(ended); });
    }

    void setRecorder(const AudioFileRecorder *recorder)
    {
        const std::lock_guard lock(m_mutex);
        m_recorder = recorder;
        m_began = never;
        m_isListening = recorder != nullptr;
        if (recorder)
            m_shared->captured = m_shared->spoken = 0;
    }

    /// Whether what is spoken from now on belongs into the recording.
    void setListening(bool listening)
    {
        const std::lock_guard lock(m_mutex);
        m_began = listening ? never : m_began;
        m_isListening = listening;
    }

private:
    static constexpr qint64 never = std::numeric_limits<qint64>::max();

    void count(MonotonicTime now)
    {
        const double seconds = m_recorder->currentTime();
        m_shared->captured = std::llround(seconds * 44100);
        if (seconds > 0) // the earliest beginning is the right one: all others were seen late
            m_began = std::min(m_began, now - std::llround(seconds * 1e9));
        if (m_isListening && m_began != never)
            m_shared->spoken = std::llround(double(now - m_began) * 44100 / 1e9);
    }

    void follow(const std::stop_token &ended)
    {
        prctl(PR_SET_TIMERSLACK, 1);
        while (!ended.stop_requested()) {
            {
                const std::lock_guard lock(m_mutex);
                if (m_recorder)
                    count(monotonicNow());
            }
            usleep(1000);
        }
    }

    Shared *m_shared = nullptr;
    std::mutex m_mutex; // guards what follows
    const AudioFileRecorder *m_recorder = nullptr;
    bool m_isListening = false;
    qint64 m_began = never; // by the clock, as if nothing had been paused
    std::jthread m_thread; // last: it uses the others
};

class Driven : public QObject
{
    Q_OBJECT

public:
    explicit Driven(const char *counter)
        : m_sound(makePulseSound()), m_counter(counter), m_input(STDIN_FILENO, QSocketNotifier::Read)
    {
        m_in.open(stdin, QIODevice::ReadOnly | QIODevice::Unbuffered);
        connect(&m_input, &QSocketNotifier::activated, this, [this] { takeCommand(); });
        m_sound.recorderFactory->preload();
        m_sound.recorderFactory->waitForFinished(plenty);
        say("ready");
    }

    ~Driven() override { drop(); }

private:
    void drop()
    {
        m_counter.setRecorder(nullptr);
        m_recorder.reset();
        m_sound.recorderFactory->waitForFinished(plenty);
    }

    void takeCommand()
    {
        const QByteArray line = m_in.readLine().trimmed();
        const QByteArray verb = line.split(' ').first();
        const QByteArray rest = line.mid(verb.size() + 1);
        if (verb == "record")
            record(rest);
        else if (verb == "pause" || verb == "resume" || verb == "stop")
            command(verb);
        else if (verb == "recover")
            say("recovered " + QByteArray::number(m_sound.recorderFactory->finishInterruptedRecordings(
                    {FileURL::fromNativePath(rest)}, plenty)));
        else if (verb == "rename")
            rename(rest.split('\t'));
        else if (verb == "block")
            usleep(rest.toUInt() * 1000), say("unblocked");
        else if (verb == "end" || line.isEmpty()) // or the end of the input
            QCoreApplication::quit();
        else
            qFatal("no command: %s", line.constData());
    }

    void record(const QByteArray &path)
    {
        drop();
        m_recorder = m_sound.recorderFactory->create(FileURL::fromNativePath(path), settings, nullptr);
        if (!m_recorder)
            return say("refused");
        connect(m_recorder.get(), &AudioFileRecorder::captureStarted, this, [] { say("started"); });
        connect(m_recorder.get(), &AudioFileRecorder::troubleOccurred, this,
                [](RecordingTrouble trouble, const QString &detail) {
                    say("trouble " + QByteArray::number(int(trouble)) + ' ' + detail.toUtf8());
                });
        connect(m_recorder.get(), &AudioFileRecorder::finished, this, [this](bool kept) {
            say("finished " + QByteArray::number(int(kept)) + ' ' + m_recorder->url().nativePath());
        });
        m_counter.setRecorder(m_recorder.get());
        m_recorder->prepareToRecord();
        m_recorder->record();
        say("recording");
    }

    void command(const QByteArray &verb)
    {
        if (!m_recorder)
            return;
        m_counter.setListening(verb == "resume");
        if (verb == "pause")
            m_recorder->pause(), say("paused");
        else if (verb == "resume")
            m_recorder->record(), say("resumed");
        else
            m_recorder->stop(), say("stopped");
    }

    static void rename(const QByteArrayList &names)
    {
        const bool moved = PosixFolderContents().moveItem(FileURL::fromNativePath(names.value(0)),
                                                          FileURL::fromNativePath(names.value(1)), nullptr);
        say("renamed " + QByteArray::number(int(moved)));
    }

    const PulseSound m_sound;
    Counter m_counter;
    QFile m_in;
    QSocketNotifier m_input;
    std::unique_ptr<AudioFileRecorder> m_recorder;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: kest-driven-recorder COUNTER");
    Driven driven(argv[1]);
    return QCoreApplication::exec();
}

#include "kest-driven-recorder.moc"
