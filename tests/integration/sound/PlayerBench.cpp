#include "PlayerBench.h"

#include "RecorderBench.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace kest::test {

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // ms, on a machine under load

/// Half a second of what an output gives that runs.
constexpr qint64 runningBytes = 44100 / 2 * sizeof(float);

constexpr qsizetype silenceSamples = 44100 / 5;

bool audible(float sample)
{
    return std::fabs(sample) > 1e-4F;
}

/// Until pactl says something of the name.
void waitForOutputOf(const QStringList &arguments, const QString &name)
{
    if (!QTest::qWaitFor([&] { return outputOf(u"pactl"_s, arguments).contains(name.toLatin1()); }, patience))
        QTest::qFail("the output did not appear", __FILE__, __LINE__);
}

} // namespace

void makeNoise(const FileURL &file, double seconds)
{
    // Without the codec's substitution of noise, which every decoding makes anew.
    outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-y"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                           u"anoisesrc=d=%1:a=0.3:r=44100:seed=7"_s.arg(seconds), u"-ac"_s, u"1"_s, u"-c:a"_s,
                           u"aac"_s, u"-aac_pns"_s, u"0"_s, u"-b:a"_s, u"72k"_s, file.path()});
}

VirtualOutput::VirtualOutput(const QString &name)
    : m_name(name)
{
    m_module = QString::fromLatin1(outputOf(u"pactl"_s, {u"load-module"_s, u"module-null-sink"_s, u"sink_name="_s + name,
                                                         u"rate=44100"_s, u"channels=1"_s, u"format=float32le"_s}))
                   .trimmed();
    waitForOutputOf({u"list"_s, u"short"_s, u"sinks"_s}, name);
    outputOf(u"pactl"_s, {u"set-default-sink"_s, name});
    waitForOutputOf({u"get-default-sink"_s}, name);
    // Silence keeps it running: one that only begins to run swallows some samples, or waits for seconds.
    m_silence.start(u"pacat"_s, {u"--raw"_s, u"--device="_s + name, u"--latency-msec=100"_s, u"/dev/zero"_s});
}

VirtualOutput::~VirtualOutput()
{
    for (QProcess *process : {&m_silence, &m_listener}) {
        process->kill();
        process->waitForFinished();
    }
    // Where the server was killed, it is gone already.
    if (!m_module.isEmpty())
        QProcess::execute(u"pactl"_s, {u"unload-module"_s, m_module});
}

void VirtualOutput::remove()
{
    outputOf(u"pactl"_s, {u"unload-module"_s, m_module});
    m_module.clear();
}

void VirtualOutput::listen()
{
    m_listener.start(u"parec"_s, {u"--raw"_s, u"--device="_s + m_name + u".monitor"_s, u"--format=float32le"_s,
                                  u"--rate=44100"_s, u"--channels=1"_s, u"--latency-msec=20"_s});
    if (!QTest::qWaitFor([&] { return m_listener.bytesAvailable() > runningBytes; }, patience))
        QTest::qFail("nothing can be heard of the output", __FILE__, __LINE__);
}

void VirtualOutput::forget()
{
    m_listener.readAll();
    m_raw.clear();
    const auto silent = [this] {
        const std::vector<float> samples = all();
        return std::ssize(samples) >= silenceSamples && std::none_of(samples.end() - silenceSamples, samples.end(), audible);
    };
    if (!QTest::qWaitFor(silent, patience))
        QTest::qFail("it does not become silent", __FILE__, __LINE__);
    m_raw.clear();
}

std::vector<float> VirtualOutput::all()
{
    m_raw += m_listener.readAll();
    std::vector<float> samples(size_t(m_raw.size()) / sizeof(float));
    std::memcpy(samples.data(), m_raw.constData(), samples.size() * sizeof(float));
    return samples;
}

std::vector<float> VirtualOutput::heard()
{
    const std::vector<float> samples = all();
    const auto first = std::find_if(samples.begin(), samples.end(), audible);
    const auto last = std::find_if(samples.rbegin(), samples.rend(), audible);
    return first == samples.end() ? std::vector<float>() : std::vector<float>(first, last.base());
}

bool VirtualOutput::isSilentAgain()
{
    const std::vector<float> samples = all();
    const auto last = std::find_if(samples.rbegin(), samples.rend(), audible);
    return last != samples.rend() && last - samples.rbegin() >= silenceSamples;
}

PlayerBench::PlayerBench(const PulseSoundOptions &options)
    : sound(makePulseSound(options))
    , player(*sound.player)
    , opened(&player, &AudioFilePlayer::opened)
    , waveform(&player, &AudioFilePlayer::waveformRead)
    , trouble(&player, &AudioFilePlayer::troubleOccurred)
{
}

FileURL PlayerBench::noise(double seconds, const QString &name) const
{
    const FileURL file = path(name);
    makeNoise(file, seconds);
    return file;
}

bool PlayerBench::open(const FileURL &file)
{
    waveform.clear();
    player.open(file);
    return QTest::qWaitFor([&] { return !waveform.isEmpty() || !trouble.isEmpty(); }, patience) && trouble.isEmpty();
}

bool PlayerBench::waitForPosition(double seconds)
{
    return QTest::qWaitFor([&] { return player.position() >= seconds || !player.isPlaying(); }, patience)
        && player.isPlaying();
}

bool PlayerBench::waitForEnd()
{
    return QTest::qWaitFor([&] { return !player.isPlaying(); }, patience) && trouble.isEmpty();
}

bool PlayerBench::waitForTrouble()
{
    return QTest::qWaitFor([&] { return !trouble.isEmpty(); }, patience);
}

qsizetype placeOf(const float *piece, qsizetype length, const std::vector<float> &whole, double *likeness)
{
    qsizetype best = -1;
    *likeness = -1.0;
    for (qsizetype at = 0; at + length <= qsizetype(whole.size()); ++at) {
        double both = 0, one = 0, other = 0;
        for (qsizetype i = 0; i < length; ++i) {
            both += double(piece[i]) * double(whole[size_t(at + i)]);
            one += double(piece[i]) * double(piece[i]);
            other += double(whole[size_t(at + i)]) * double(whole[size_t(at + i)]);
        }
        const double alike = both / std::sqrt(one * other + 1e-12);
        if (alike > *likeness) {
            *likeness = alike;
            best = at;
        }
    }
    return best;
}

} // namespace kest::test
