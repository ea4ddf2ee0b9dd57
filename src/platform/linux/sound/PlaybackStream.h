#pragma once

#include "platform/linux/sound/PulseContext.h"

namespace kest {

/// Hears about a PlaybackStream. Called on the PulseThread.
class PlaybackStreamListener
{
public:
    virtual ~PlaybackStreamListener() = default;

    /// All that was written has been heard; follows `drain`.
    virtual void streamDrained() = 0;

    /// The server refused the stream, or ended it.
    virtual void streamLost() = 0;

    /// What it played on is not there any more, wherever it plays now.
    virtual void outputLost() = 0;
};

/// One stream of mono samples to the default output.
///
/// The person and the desktop may move it to another output; when the one that
/// it played on went away, somebody must decide whether the next one may be
/// heard. For the PulseThread.
class PlaybackStream
{
public:
    PlaybackStream(PulseContext &context, int sampleRate, PlaybackStreamListener &listener);
    ~PlaybackStream();
    PlaybackStream(const PlaybackStream &) = delete;
    PlaybackStream &operator=(const PlaybackStream &) = delete;

    /// False when the server refuses at once.
    bool open();

    bool isReady() const;

    /// Servers that have no output offer one that nobody hears.
    bool isHeard() const;

    /// How many samples the server asks for now.
    qsizetype wanted() const;
    void write(const float *samples, qsizetype count);

    /// Nothing more is written; `streamDrained` follows.
    void drain();

    /// How many samples have been heard.
    qint64 played() const;

    /// Looks whether the output is still there; `outputLost` if not.
    void lookForOutput();

private:
    void stateChanged();
    void moved();
    void noteOutput();
    void forgetInquiry();

    PulseContext &m_context;
    const PulseFunctions &m_pulse;
    const int m_sampleRate;
    PlaybackStreamListener &m_listener;
    pa_stream *m_stream = nullptr;
    pa_operation *m_inquiry = nullptr; // for an output
    uint32_t m_output = PA_INVALID_INDEX; // likewise where it is not heard
    qint64 m_written = 0;
};

} // namespace kest
