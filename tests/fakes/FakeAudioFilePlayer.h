#pragma once

#include "platform/AudioFilePlayer.h"

#include <QStringList>

namespace kest::test {

/// A player without sound: notes its calls, and plays only as far as it is told.
class FakeAudioFilePlayer : public AudioFilePlayer
{
    Q_OBJECT

public:
    using AudioFilePlayer::AudioFilePlayer;

    void open(const FileURL &file) override
    {
        close();
        opens.append(file);
        m_file = file;
    }

    void close() override
    {
        pause();
        m_file = {};
        m_position = m_length = 0.0;
    }

    void play() override
    {
        if (m_file.isEmpty())
            return;
        setPlaying(true);
    }

    void pause() override { setPlaying(false); }
    void seek(double seconds) override { m_position = seconds; }
    bool isPlaying() const override { return m_playing; }
    double position() const override { return m_position; }
    double length() const override { return m_length; }

    const FileURL &file() const { return m_file; }

    /// The file was read.
    void read(double seconds, const QList<float> &peaks = {})
    {
        m_length = seconds;
        Q_EMIT opened(seconds);
        Q_EMIT waveformRead(peaks);
    }

    /// So far it has played by now.
    void setPosition(double seconds) { m_position = seconds; }

    void end()
    {
        m_position = m_length;
        setPlaying(false);
    }

    void fail(PlaybackTrouble trouble)
    {
        setPlaying(false);
        Q_EMIT troubleOccurred(trouble, QStringLiteral("what the system says"));
    }

    QList<FileURL> opens;

private:
    void setPlaying(bool playing)
    {
        if (m_playing == playing)
            return;
        m_playing = playing;
        Q_EMIT playingChanged(playing);
    }

    FileURL m_file;
    double m_position = 0.0;
    double m_length = 0.0;
    bool m_playing = false;
};

} // namespace kest::test
