#include "platform/linux/sound/PulseRecorderFactory.h"

#include "platform/Error.h"
#include "platform/linux/sound/PulseHardware.h"
#include "platform/linux/sound/PulseMicrophoneTrial.h"
#include "platform/linux/sound/PulsePlayer.h"
#include "platform/linux/sound/PulseSound.h"
#include "platform/linux/sound/RecordingLog.h"
#include "platform/linux/sound/RecordingRecovery.h"

#include <QCoreApplication>
#include <QTimer>

#include <unistd.h>

#include <system_error>
#include <utility>

namespace kest {

namespace {

constexpr quint32 formatMpeg4Aac = 0x61616320; // "aac "
constexpr int warmMilliseconds = 5000;

Error unsupported(const QString &reason)
{
    return {kestErrorDomain, 0, QCoreApplication::translate("PulseRecorder", "The recording cannot be made."), reason};
}

bool areServed(const AudioRecorderSettings &settings)
{
    return settings.formatID == formatMpeg4Aac && settings.numberOfChannels == 1
        && qRound(settings.sampleRate) == CaptureStream::sampleRate;
}

} // namespace

PulseRecorderFactory::PulseRecorderFactory(std::shared_ptr<PulseContext> context,
                                           std::shared_ptr<EncoderLoader> encoders,
                                           std::shared_ptr<RecordingJournal> journal)
    : m_context(std::move(context)), m_encoders(std::move(encoders)), m_journal(std::move(journal)),
      m_warm(std::make_shared<std::shared_ptr<CaptureSession>>())
{
}

std::unique_ptr<AudioFileRecorder> PulseRecorderFactory::create(const FileURL &url,
                                                                const AudioRecorderSettings &settings, Error *error)
{
    if (!areServed(settings)) {
        handBack(error, unsupported(QCoreApplication::translate("PulseRecorder", "This format is not served.")));
        return nullptr;
    }
    if (access(url.deletingLastPathComponent().nativePath().constData(), W_OK | X_OK) < 0) {
        handBack(error, posixError(errno, QCoreApplication::translate("PulseRecorder", "The recording cannot be made.")));
        return nullptr;
    }
    return std::make_unique<PulseRecorder>(
        url, EncoderFormat{.sampleRate = CaptureStream::sampleRate},
        PulseRecorder::Parts{[this] { return startCapture(); }, m_encoders, m_journal, m_jobs});
}

std::shared_ptr<CaptureSession> PulseRecorderFactory::startCapture()
{
    auto warm = std::exchange(*m_warm, nullptr);
    if (warm && !warm->hasEnded())
        return warm;
    return CaptureSession::start(m_context);
}

void PulseRecorderFactory::preload()
{
    try {
        m_jobs->run([encoders = m_encoders] {
            QString problem; // told when somebody records
            encoders->load(&problem);
        });
    } catch (const std::system_error &failure) {
        qCWarning(logRecording, "The encoder is loaded only when somebody records: %s", failure.what());
    }
}

void PulseRecorderFactory::warmUp()
{
    if (*m_warm && !(*m_warm)->hasEnded())
        return;
    *m_warm = CaptureSession::start(m_context);
    const std::weak_ptr<CaptureSession> session = *m_warm;
    const std::weak_ptr<std::shared_ptr<CaptureSession>> slot = m_warm;
    QTimer::singleShot(warmMilliseconds, QCoreApplication::instance(), [session, slot] {
        const auto place = slot.lock();
        const auto unused = session.lock();
        if (place && unused && *place == unused) {
            unused->stop();
            place->reset();
        }
    });
}

int PulseRecorderFactory::finishInterruptedRecordings(const QList<FolderURL> &folders, int milliseconds)
{
    auto entries = std::make_shared<std::vector<std::unique_ptr<RecordingJournal::Entry>>>(m_journal->interrupted());
    const int count = int(entries->size());
    if (count == 0)
        return 0;
    try {
        m_jobs->run([entries, folders] { RecordingRecovery(folders).finish(std::move(*entries)); });
    } catch (const std::system_error &failure) {
        qCWarning(logRecording, "Unfinished recordings wait for the next start: %s", failure.what());
        return 0;
    }
    m_jobs->waitForAll(milliseconds);
    return count;
}

PulseSound makePulseSound(const PulseSoundOptions &options)
{
    RecordingFile::rememberUmask(); // before libpulse's thread begins
    const auto context = std::make_shared<PulseContext>(options.applicationName, options.pulsePlugin);
    const auto encoders = options.encoders ? options.encoders : std::make_shared<EncoderLoader>();
    const auto journal = std::make_shared<RecordingJournal>(
        options.journalFolder.isEmpty() ? RecordingJournal::defaultFolder() : options.journalFolder);
    const auto decoders = options.decoders ? options.decoders : std::make_shared<DecoderLoader>();
    return {std::make_unique<PulseRecorderFactory>(context, encoders, journal),
            std::make_unique<PulseHardware>(context), std::make_unique<PulsePlayer>(context, decoders),
            std::make_unique<PulseMicrophoneTrial>(context)};
}

} // namespace kest
