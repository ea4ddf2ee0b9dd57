// Measures the recorder against the private sound server of bench/recording.py and prints one JSON object.
//
//     recording_bench call RUNS | take SECONDS | hour

#include "platform/linux/sound/PulseSound.h"
#include "support/VirtualMicrophone.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

using namespace kest;
using namespace kest::test;

namespace {

constexpr AudioRecorderSettings settings = {0x61616320, 64, 1, 44100.0F};
constexpr double fast = 10; // times real time; far faster, PulseAudio leaves samples out for who reads ten times a second

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

double processorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double memoryMegabytes()
{
    QFile rollup(QStringLiteral("/proc/self/smaps_rollup"));
    if (!rollup.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : rollup.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void wait(int time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

class Take
{
public:
    explicit Take(const PulseSound &sound)
        : recorder(sound.recorderFactory->create(
            FileURL::fromPath(m_folder.filePath(QStringLiteral("take.m4a"))), settings, nullptr))
    {
    }

    QJsonObject start()
    {
        QEventLoop loop;
        QObject::connect(recorder.get(), &AudioFileRecorder::captureStarted, &loop, &QEventLoop::quit);
        QElapsedTimer timer;
        timer.start();
        recorder->prepareToRecord();
        const double prepared = milliseconds(timer);
        recorder->record();
        const double called = milliseconds(timer);
        loop.exec();
        return {{QStringLiteral("prepare ms"), prepared}, {QStringLiteral("calls ms"), called},
                {QStringLiteral("first sample ms"), milliseconds(timer)}};
    }

    void waitFor(double seconds) const
    {
        while (recorder->currentTime() < seconds)
            wait(20);
    }

    QJsonObject stop()
    {
        QEventLoop loop;
        QObject::connect(recorder.get(), &AudioFileRecorder::finished, &loop, &QEventLoop::quit);
        QElapsedTimer timer;
        timer.start();
        recorder->stop();
        const double called = milliseconds(timer);
        loop.exec();
        return {{QStringLiteral("stop call ms"), called}, {QStringLiteral("finished ms"), milliseconds(timer)},
                {QStringLiteral("megabytes"), double(QFile(recorder->url().path()).size()) / 1e6}};
    }

private:
    QTemporaryDir m_folder;

public:
    std::unique_ptr<AudioFileRecorder> recorder;
};

QJsonObject measureCalls(const PulseSound &sound, int runs)
{
    QJsonArray cold;
    QJsonArray warm;
    for (int run = 0; run < runs; ++run) {
        for (const bool warmed : {false, true}) {
            if (warmed)
                sound.recorderFactory->warmUp();
            wait(150);
            Take take(sound);
            (warmed ? warm : cold).append(take.start());
            take.waitFor(0.1);
            take.stop();
        }
    }
    return {{QStringLiteral("cold"), cold}, {QStringLiteral("warm"), warm}};
}

QJsonObject measureTake(const PulseSound &sound, double seconds)
{
    const double idle = memoryMegabytes();
    Take take(sound);
    take.start();
    wait(500);
    QElapsedTimer timer;
    timer.start();
    const double before = processorSeconds();
    take.waitFor(seconds);
    QJsonObject figures = {{QStringLiteral("cpu percent"), (processorSeconds() - before) * 1e5 / milliseconds(timer)},
                           {QStringLiteral("idle MB"), idle}, {QStringLiteral("recording MB"), memoryMegabytes()}};
    const QJsonObject stopped = take.stop();
    for (auto it = stopped.begin(); it != stopped.end(); ++it)
        figures[it.key()] = it.value();
    return figures;
}

QJsonObject measureHour(const PulseSound &sound)
{
    const VirtualMicrophone microphone(sine(300, 0.3), 1, fast);
    Take take(sound);
    take.start();
    take.waitFor(3600);
    const double memory = memoryMegabytes();
    QJsonObject figures = take.stop();
    figures[u"recording MB"] = memory;
    return figures;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const PulseSound sound = makePulseSound();
    wait(500);
    sound.recorderFactory->preload();
    sound.recorderFactory->waitForFinished(5000);
    const QByteArray what = argc > 1 ? argv[1] : "";
    QJsonObject figures;
    if (what == "call")
        figures = measureCalls(sound, std::atoi(argv[2]));
    else if (what == "take")
        figures = measureTake(sound, std::atof(argv[2]));
    else if (what == "hour")
        figures = measureHour(sound);
    std::puts(QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    return 0;
}
