// Makes long recordings fast, and times how each becomes an ordinary file. Used by bench/finishing.py.
//
//     finish_bench make FILE SECONDS     a fragmented recording as it is when Stop is pressed
//     finish_bench finish FILE SECONDS   finishes it in its place, prints the milliseconds until it is safe on the disk

#include "platform/linux/sound/EncoderLoader.h"
#include "platform/linux/sound/RecordingFinisher.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryFile>
#include <QtEndian>

#include <cstdio>
#include <random>

using namespace kest;

namespace {

constexpr int sampleRate = 44100;
constexpr int packetSamples = 1024;
constexpr int encodedSeconds = 60; // the rest repeats these

/// A minute of noise as the recorder writes it.
QByteArray recordMinute()
{
    QString problem;
    EncoderPlugin *plugin = EncoderLoader().load(&problem);
    QTemporaryFile file;
    FileFailure failure;
    if (!plugin || !file.open())
        qFatal("%s", qPrintable(problem));
    const auto writer = plugin->createWriter(file.handle(), {}, &failure);
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, 0.1F);
    std::vector<float> second(sampleRate);
    for (int i = 0; i < encodedSeconds; ++i) {
        for (float &sample : second)
            sample = noise(random);
        if (writer->write(second.data(), sampleRate))
            qFatal("the minute could not be written");
    }
    writer->close();
    file.seek(0);
    return file.readAll();
}

struct Minute {
    QByteArray head;
    QList<QByteArray> fragments;
};

Minute takeApart(const QByteArray &recording)
{
    Minute minute;
    for (qsizetype at = 0; at + 8 <= recording.size();) {
        const QByteArray box = recording.mid(at, qFromBigEndian<quint32>(recording.constData() + at));
        const QByteArray type = box.mid(4, 4);
        if (type == "moof")
            minute.fragments.append(box);
        else if (type == "mdat")
            minute.fragments.last().append(box);
        else
            minute.head.append(box);
        at += box.size();
    }
    minute.fragments.removeLast(); // its last packets are those of an end
    return minute;
}

/// Gives the fragment its number and its time, as if it had been recorded then.
int placeFragment(QByteArray *fragment, quint32 number, quint64 packetsBefore)
{
    qToBigEndian(number, fragment->data() + fragment->indexOf("mfhd") + 8);
    qToBigEndian(quint64(packetsBefore * packetSamples), fragment->data() + fragment->indexOf("tfdt") + 8);
    return qFromBigEndian<int>(fragment->constData() + fragment->indexOf("trun") + 8);
}

int make(const QString &path, int seconds)
{
    const Minute minute = takeApart(recordMinute());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write(minute.head);
    quint64 packets = 0;
    for (quint32 number = 1; packets * packetSamples < quint64(seconds) * sampleRate; ++number) {
        QByteArray fragment = minute.fragments[(number - 1) % minute.fragments.size()];
        packets += quint64(placeFragment(&fragment, number, packets));
        file.write(fragment);
    }
    return 0;
}

int finish(const QString &path, int seconds)
{
    FileFailure failure;
    auto file = RecordingFile::open(FileURL::fromPath(path), &failure);
    if (!file)
        return 1;
    QElapsedTimer timer;
    timer.start();
    const auto failed = finishRecording(*file, qint64(seconds) * sampleRate - packetSamples);
    std::printf("%.2f\n", double(timer.nsecsElapsed()) / 1e6);
    return failed ? 1 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("make"))
        return make(arguments[2], arguments[3].toInt());
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("finish"))
        return finish(arguments[2], arguments[3].toInt());
    return 2;
}
