#include "platform/linux/sound/WaveformScan.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kest {

namespace {

constexpr qsizetype samplesAtOnce = 2048;

/// Of what is decoded for a look at one place; the rest is the codec's run-up.
constexpr qint64 costOfALook = 3 * samplesAtOnce;

class WaveformScan
{
public:
    WaveformScan(SoundReader &reader, int mostPeaks, const std::atomic<bool> &cancelled)
        : m_reader(reader), m_cancelled(cancelled),
          m_peaks(qsizetype(std::clamp<qint64>(reader.length(), 0, mostPeaks)), 0.0F)
    {
    }

    void readWhole()
    {
        for (qint64 at = 0, got = 0; (got = look(at, samplesAtOnce)) > 0; at += got) { }
    }

    void readPlaces(qint64 places)
    {
        for (qint64 place = 0; place < places; ++place) {
            const qint64 at = m_reader.length() / places * place;
            if (m_reader.seek(at) || look(at, samplesAtOnce) <= 0)
                return;
        }
    }

    QList<float> peaks() const { return m_peaks; }

private:
    /// How many samples were seen; 0 or less when that was all.
    qint64 look(qint64 at, qsizetype count)
    {
        if (m_cancelled.load(std::memory_order_relaxed) || m_peaks.isEmpty())
            return 0;
        FileFailure unused; // what is there is shown
        const qsizetype got = m_reader.read(m_samples.data(), count, &unused);
        for (qsizetype sample = 0; sample < got; ++sample)
            raise(at + sample, std::fabs(m_samples[size_t(sample)]));
        return got;
    }

    void raise(qint64 sample, float loudness)
    {
        const auto part = qsizetype(std::min(sample * m_peaks.size() / m_reader.length(), qint64(m_peaks.size()) - 1));
        m_peaks[part] = std::max(m_peaks[part], std::min(loudness, 1.0F));
    }

    SoundReader &m_reader;
    const std::atomic<bool> &m_cancelled;
    QList<float> m_peaks;
    std::vector<float> m_samples = std::vector<float>(samplesAtOnce);
};

} // namespace

QList<float> scanWaveform(SoundReader &reader, int mostPeaks, const std::atomic<bool> &cancelled, qint64 readWhole)
{
    WaveformScan scan(reader, mostPeaks, cancelled);
    if (reader.length() <= readWhole)
        scan.readWhole();
    else
        scan.readPlaces(readWhole / costOfALook);
    return scan.peaks();
}

} // namespace kest
