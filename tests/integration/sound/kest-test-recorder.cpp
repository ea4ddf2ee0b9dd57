// Records into the file named by the first argument until it is killed, and keeps saying on standard output how many
// samples are recorded so far. First it finishes what an earlier run left. With a second argument, records only so many seconds and finishes.

#include "RecorderBench.h"

#include <QCoreApplication>
#include <QTimer>

#include <cmath>
#include <cstdio>

using namespace kest;
using namespace kest::test;

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const PulseSound sound = makePulseSound();
    sound.recorderFactory->finishInterruptedRecordings({}, 5000);
    sound.recorderFactory->preload(); // as the program does at idle
    sound.recorderFactory->waitForFinished(10'000);
    const auto recorder = sound.recorderFactory->create(FileURL::fromNativePath(argv[1]), RecorderBench::settings(), nullptr);
    if (!recorder || !recorder->prepareToRecord() || !recorder->record())
        return 1;
    const double seconds = argc > 2 ? std::atof(argv[2]) : INFINITY;
    QObject::connect(recorder.get(), &AudioFileRecorder::finished, &application, &QCoreApplication::quit);
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &application, [&] {
        std::printf("%lld\n", std::llround(recorder->currentTime() * 44100));
        std::fflush(stdout);
        if (recorder->currentTime() >= seconds)
            recorder->stop();
    });
    timer.start(5);
    return QCoreApplication::exec();
}
