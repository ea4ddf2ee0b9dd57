#pragma once

#include "platform/AudioFilePlayer.h"
#include "platform/linux/sound/PulseSound.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace kest::test {

/// Makes a recording of `seconds` of noise, so that every place in it can be
/// told from every other.
void makeNoise(const FileURL &file, double seconds);

/// An output that nobody hears, on the private sound server, and a recorder of
/// what is played on it. The first one becomes the default.
class VirtualOutput
{
public:
    explicit VirtualOutput(const QString &name);
    ~VirtualOutput();

    /// Unplugs it.
    void remove();

    /// Begins to note what is heard, and waits until that works.
    void listen();

    /// Begins anew, once it is silent: what was played so far does not count, also where it is still on its way.
    void forget();

    /// What was heard since, without the silence before and behind; mono, at
    /// 44100 Hz.
    std::vector<float> heard();

    /// True when something was heard, and then nothing for a fifth of a second.
    bool isSilentAgain();

private:
    std::vector<float> all();

    const QString m_name;
    QString m_module;
    QProcess m_silence;
    QProcess m_listener;
    QByteArray m_raw;
};

/// A player over the private sound server, with spies on its news.
class PlayerBench
{
public:
    explicit PlayerBench(const PulseSoundOptions &options = {});

    /// Such a recording in `folder`.
    FileURL noise(double seconds, const QString &name = QStringLiteral("noise.m4a")) const;

    FileURL path(const QString &name) const { return FileURL::fromPath(folder.filePath(name)); }

    /// Opens the file and waits until its waveform is there.
    bool open(const FileURL &file);
    bool waitForPosition(double seconds);
    bool waitForEnd();
    bool waitForTrouble();

    QTemporaryDir folder;
    PulseSound sound;
    AudioFilePlayer &player;
    QSignalSpy opened;
    QSignalSpy waveform;
    QSignalSpy trouble;
};

/// Where `piece` lies in `whole`: the sample at which the two are most alike.
/// `likeness` (1: the same but for loudness) says how much so.
qsizetype placeOf(const float *piece, qsizetype length, const std::vector<float> &whole, double *likeness);

} // namespace kest::test
