#include "platform/linux/sound/RecordingJob.h"

#include "platform/linux/sound/FileSyncer.h"
#include "platform/linux/sound/RecordingFinisher.h"
#include "platform/linux/sound/RecordingLog.h"

#include <array>

namespace kest {

namespace {

constexpr int waitMilliseconds = 250; // longer than samples take to come: it is not to wake for nothing

} // namespace

void RecordingJob::run()
{
    if (!m_parts.entry || !m_parts.entry->confirm(m_parts.file))
        qCWarning(logRecording, "A crash would leave this recording unfinished: it could not be remembered");
    encode();
    const bool kept = finish();
    m_writer.reset();
    m_parts.finished(kept, m_parts.file.url());
}

void RecordingJob::cancel()
{
    m_parts.file.remove();
    if (m_parts.entry)
        m_parts.entry->done();
}

void RecordingJob::encode()
{
    if (!openWriter())
        return;
    // The note of this recording too: a disk that takes long for it must not keep sound out of the file.
    const FileSyncer syncer(m_parts.file.descriptor(), [this] {
        if (m_parts.entry)
            m_parts.entry->sync();
    });
    std::array<float, 8192> samples = {};
    while (!m_failed) {
        // Asked before the ring is read: what was captured before the end is in the ring then.
        const bool ended = m_parts.capture->hasEnded();
        const qsizetype count = m_parts.capture->read(samples.data(), qsizetype(samples.size()), waitMilliseconds);
        if (count == 0 && ended)
            break;
        if (count == 0)
            continue;
        if (const auto failure = m_writer->write(samples.data(), count))
            writeFailed(*failure);
        else
            m_written += count;
        if (syncer.error() != 0 && !m_failed)
            writeFailed(FileFailure::fromErrno(syncer.error()));
        m_parts.fileSize->store(m_parts.file.size(), std::memory_order_relaxed);
    }
    if (m_failed || m_written == 0)
        return;
    if (const auto failure = m_writer->close())
        writeFailed(*failure);
}

bool RecordingJob::openWriter()
{
    QString problem;
    EncoderPlugin *plugin = m_parts.encoders->load(&problem);
    FileFailure failure;
    if (plugin)
        m_writer = plugin->createWriter(m_parts.file.descriptor(), m_parts.format, &failure);
    if (m_writer)
        return true;
    m_parts.troubleOccurred(RecordingTrouble::EncoderMissing, plugin ? failure.detail : problem);
    m_parts.capture->abandon();
    return false;
}

void RecordingJob::writeFailed(const FileFailure &failure)
{
    m_failed = true;
    const auto trouble = failure.isDiskFull() ? RecordingTrouble::DiskFull : RecordingTrouble::CannotWrite;
    // From here and not through the capture: it must be told before the end is, however late the capture's thread is.
    m_parts.troubleOccurred(trouble, failure.detail);
    m_parts.capture->abandon();
}

bool RecordingJob::finish()
{
    // One that cannot be read now is kept: finishing it fails, is told, and is tried again at the next start.
    const bool empty = m_written == 0 || isFragmented(m_parts.file.descriptor()) == false;
    if (empty) {
        m_parts.file.remove();
        if (m_parts.entry)
            m_parts.entry->done();
        return false;
    }
    // After a failure the file ends with its last whole fragment: then the packets tell how long it is.
    const auto count = m_failed ? std::nullopt : std::optional(m_written);
    if (const auto failure = finishRecording(m_parts.file, count)) {
        qCWarning(logRecording, "A recording stays unfinished: %ls", qUtf16Printable(failure->detail));
        if (!m_failed)
            writeFailed(*failure);
        return m_parts.file.locate();
    }
    if (m_parts.entry)
        m_parts.entry->done();
    return true;
}

} // namespace kest
