#include "support/VirtualMicrophone.h"

#include <QJsonDocument>

#include <chrono>
#include <cmath>
#include <fcntl.h>
#include <numbers>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace kest::test {

namespace {

constexpr int rate = 44100;

} // namespace

QJsonObject tellSoundServer(const char *verb, QJsonObject arguments)
{
    const QByteArray path = qgetenv("KEST_TEST_SOUND_CONTROL");
    sockaddr_un address = {AF_UNIX, {}};
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int control = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(control, reinterpret_cast<sockaddr *>(&address), sizeof address) < 0)
        throw std::runtime_error("no sound service: run with_services.py --sound");
    arguments[u"do"] = QString::fromLatin1(verb);
    const QByteArray request = QJsonDocument(arguments).toJson(QJsonDocument::Compact) + '\n';
    [[maybe_unused]] const ssize_t sent = write(control, request.constData(), size_t(request.size()));
    QByteArray line;
    char part[4096];
    for (ssize_t got = 0; !line.endsWith('\n') && (got = read(control, part, sizeof part)) > 0;)
        line.append(part, got);
    close(control);
    const QJsonObject answer = QJsonDocument::fromJson(line).object();
    if (!answer[u"ok"].toBool())
        throw std::runtime_error(std::string(verb) + ": " + answer[u"error"].toString().toStdString());
    return answer;
}

VirtualMicrophone::VirtualMicrophone(Signal signal, int channels, double speed)
    : VirtualMicrophone(qgetenv("KEST_TEST_MICROPHONE_FIFO"), std::move(signal), channels, speed)
{
}

VirtualMicrophone::VirtualMicrophone(QByteArray fifo, Signal signal, int channels, double speed)
    : m_fifo(std::move(fifo)), m_signal(std::move(signal)), m_channels(channels), m_speed(speed)
{
    tellSoundServer("hush");
    m_thread = std::thread([this] { speak(); });
}

VirtualMicrophone::~VirtualMicrophone()
{
    m_ended = true;
    m_thread.join();
}

void VirtualMicrophone::speak()
{
    using Clock = std::chrono::steady_clock;
    const int pipe = open(m_fifo.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    // What the server did not yet take of who spoke before would be heard up to 0.7 s late.
    char stale[4096];
    while (read(pipe, stale, sizeof stale) > 0) {
    }
    std::vector<qint16> block(size_t(blockFrames * m_channels));
    const auto began = Clock::now();
    qint64 offered = 0;
    while (!m_ended) {
        const std::chrono::duration<double> spoken(double(offered) / rate / m_speed);
        std::this_thread::sleep_until(began + std::chrono::duration_cast<Clock::duration>(spoken));
        offered += blockFrames;
        if (m_hushed)
            continue;
        for (size_t i = 0; i < block.size(); ++i) {
            const float value = m_signal(m_frames + qint64(i) / m_channels, int(i) % m_channels);
            block[i] = qint16(std::lround(value * 32768.0F));
        }
        // A block goes in whole or not at all: it is smaller than PIPE_BUF. One that the server has no room for is
        // offered again, so that the count has no gap.
        const auto bytes = ssize_t(block.size() * sizeof(qint16));
        while (!m_ended && write(pipe, block.data(), size_t(bytes)) != bytes)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        m_frames += blockFrames;
    }
    close(pipe);
}

VirtualMicrophone::Signal sine(double hertz, double peak)
{
    return [=](qint64 frame, int) {
        return float(peak * std::sin(2 * std::numbers::pi * hertz * double(frame) / rate));
    };
}

VirtualMicrophone::Signal counter()
{
    return [](qint64 frame, int) { return float(int(frame % counterPeriod) - counterPeriod / 2) / 32768.0F; };
}

int counterValue(float sample)
{
    return int(std::lround(sample * 32768.0F)) + counterPeriod / 2;
}

} // namespace kest::test
