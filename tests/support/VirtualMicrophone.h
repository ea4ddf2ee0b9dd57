#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace kest::test {

/// Works the private sound server that with_services.py started (--sound).
/// Throws std::runtime_error with the server's words when it refuses.
QJsonObject tellSoundServer(const char *verb, QJsonObject arguments = {});

/// Speaks into a virtual microphone from a thread of its own, block by block in
/// real time or faster, like a sound card.
class VirtualMicrophone
{
public:
    /// Speaks so much at a time: 10 ms.
    static constexpr int blockFrames = 441;

    /// The value of a sample (full scale -1 to 1) by its number and channel.
    using Signal = std::function<float(qint64 frame, int channel)>;

    /// Speaks into the default microphone; the service's own silence stops.
    explicit VirtualMicrophone(Signal signal, int channels = 1, double speed = 1);

    /// Speaks into another FIFO.
    VirtualMicrophone(QByteArray fifo, Signal signal, int channels, double speed = 1);
    ~VirtualMicrophone();

    /// Stops delivering anything at all, or goes on.
    void hush(bool hushed) { m_hushed = hushed; }

    /// Frames handed to the server so far.
    qint64 frames() const { return m_frames; }

private:
    void speak();

    const QByteArray m_fifo;
    const Signal m_signal;
    const int m_channels;
    const double m_speed;
    std::atomic<bool> m_hushed = false;
    std::atomic<bool> m_ended = false;
    std::atomic<qint64> m_frames = 0;
    std::thread m_thread;
};

/// A sine of `hertz` with a peak of `peak`.
VirtualMicrophone::Signal sine(double hertz, double peak);

/// Each sample tells its number: successive values of a 15-bit count, well below
/// full scale, so that a lost or doubled sample shows.
VirtualMicrophone::Signal counter();

/// The count that a captured sample of `counter` carries.
int counterValue(float sample);
inline constexpr int counterPeriod = 32768;

} // namespace kest::test
